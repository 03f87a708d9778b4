// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/RepairSchema.h"

#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include <QScopeGuard>
#include <QStringList>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <map>
#include <optional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t columnCount = 5;
constexpr qsizetype mostColumnsGarbled = 2;

/// The statement may be unreadable.
bool isObject(const SalvagedRow &row)
{
    return row.values.size() == columnCount &&
           QStringList{u"table"_s, u"index"_s, u"trigger"_s, u"view"_s}.contains(textOf(row.values[0])) &&
           !textOf(row.values[1]).isEmpty();
}

SchemaObject *find(std::vector<SchemaObject> &objects, const QString &type, const QString &name)
{
    const auto isIt = [&](const SchemaObject &object) {
        return object.type == type && sameName(object.name, name);
    };
    const auto found = std::find_if(objects.begin(), objects.end(), isIt);
    return found == objects.end() ? nullptr : &*found;
}

SalvagedSchema readStored(SalvageFile &damaged)
{
    SalvagedSchema schema;
    const auto add = [&](const SalvagedRow &row) {
        const auto rootPage = std::uint32_t(integerOf(row.values[3]));
        const QString type = textOf(row.values[0]);
        const QString name = textOf(row.values[1]);
        if (!find(schema.objects, type, name))
            schema.objects.push_back({type, name, textOf(row.values[2]), rootPage, textOf(row.values[4])});
    };
    const auto isSchema = [](const std::vector<SalvagedRow> &rows) {
        return std::any_of(rows.begin(), rows.end(), isObject);
    };
    const TableLosses losses = damaged.readTable(1, isSchema, [&](const SalvagedRow &row) {
        schema.whole = schema.whole && row.complete && isObject(row);
        if (isObject(row))
            add(row);
    });
    schema.whole = schema.whole && losses.none();
    if (!schema.whole)
        damaged.readStrayPages([&](const std::vector<SalvagedRow> &rows) {
            for (const SalvagedRow &row : rows) {
                if (isObject(row))
                    add(row);
            }
            return isSchema(rows);
        });
    return schema;
}

/// The header of the file tells the encoding; a schema that makes sense only in another one knows better.
SalvagedSchema readInItsEncoding(SalvageFile &damaged)
{
    using enum SalvagedEncoding;
    const SalvagedEncoding stated = damaged.encoding();
    for (const SalvagedEncoding encoding : {stated, Utf8, Utf16LE, Utf16BE}) {
        damaged.startAnew(encoding);
        SalvagedSchema schema = readStored(damaged);
        if (!schema.objects.empty())
            return schema;
    }
    damaged.startAnew(stated);
    return {{}, false};
}

/// The schema that a script makes, with the root pages that its objects have in files made in different ways.
class KnownSchema
{
public:
    explicit KnownSchema(const QByteArray &script) : m_scratch(":memory:", SQLite::OPEN_READWRITE)
    {
        m_scratch.exec(script.toStdString());
        readRoots();
        m_scratch.exec("vacuum");
        readRoots();
    }

    const std::vector<SchemaObject> &objects() const { return m_objects; }
    using Roots = std::map<std::pair<QString, QString>, std::uint32_t>; ///< by type and name
    const std::vector<Roots> &roots() const { return m_roots; }

    static QStringList columnsOf(SQLite::Database &database, const QString &table)
    {
        SQLite::Statement query(database, "select lower(name) from pragma_table_info(?)");
        query.bind(1, table.toStdString());
        QStringList columns;
        while (query.executeStep())
            columns << QString::fromStdString(query.getColumn(0).getString());
        return columns;
    }

    /// How many of the columns that a table is known to have it lacks when this statement makes it; nothing
    /// when the statement does not make it.
    std::optional<qsizetype> columnsMissing(const QString &table, const QString &sql)
    {
        SQLite::Database scratch(":memory:", SQLite::OPEN_READWRITE);
        tryCreate(scratch, sql);
        const QStringList columns = columnsOf(scratch, table);
        if (columns.isEmpty())
            return {};
        const QStringList known = columnsOf(m_scratch, table);
        return std::count_if(known.begin(), known.end(),
                             [&](const QString &column) { return !columns.contains(column); });
    }

private:
    void readRoots()
    {
        SQLite::Statement query(m_scratch, "select type, name, tbl_name, rootpage, sql from sqlite_schema");
        const auto text = [&](int column) {
            return QString::fromStdString(query.getColumn(column).getString());
        };
        std::vector<SchemaObject> objects;
        Roots roots;
        while (query.executeStep()) {
            objects.push_back({text(0), text(1), text(2), 0, text(4), false});
            roots[{text(0), text(1)}] = std::uint32_t(query.getColumn(3).getInt());
        }
        m_objects = std::move(objects);
        m_roots.push_back(std::move(roots));
    }

    SQLite::Database m_scratch;
    std::vector<SchemaObject> m_objects;
    std::vector<Roots> m_roots;
};

TreeKind kindOf(const SchemaObject &object)
{
    return object.type == "table"_L1 ? TreeKind::Table
                                     : (object.type == "index"_L1 ? TreeKind::Index : TreeKind::None);
}

/// Of the places where the roots may lie, those that most of the readable schema has them at too; nullptr
/// when none goes with what is there.
const KnownSchema::Roots *likelyRoots(SalvageFile &damaged, std::vector<SchemaObject> &stored,
                                      const KnownSchema &known)
{
    const KnownSchema::Roots *likely = nullptr;
    int most = 0;
    for (const KnownSchema::Roots &roots : known.roots()) {
        int agreeing = 0;
        int contrary = 0;
        for (const auto &[key, root] : roots) {
            const auto &[type, name] = key;
            const SchemaObject *object = find(stored, type, name);
            if (root == 0 || type != "table"_L1)
                continue;
            const bool agrees = object ? object->rootPage == root : damaged.kindOf(root) == TreeKind::Table;
            ++(agrees ? agreeing : contrary);
        }
        if (agreeing > 2 * contrary && agreeing > most) {
            most = agreeing;
            likely = &roots;
        }
    }
    return likely;
}

void supply(SalvageFile &damaged, SalvagedSchema &schema, KnownSchema &known)
{
    const KnownSchema::Roots *likely = likelyRoots(damaged, schema.objects, known);
    std::vector<SchemaObject> objects;
    std::map<std::uint32_t, int> uses;
    for (const SchemaObject &object : schema.objects)
        ++uses[object.rootPage];
    for (SchemaObject object : known.objects()) {
        const SchemaObject *stored = find(schema.objects, object.type, object.name);
        if (stored) {
            object.wasFound = true;
            object.rootPage = stored->rootPage;
            // Other tools may have added columns. With a letter or two wrong it is the known table.
            const auto missing = known.columnsMissing(object.name, stored->sql);
            const bool isForeign = missing > mostColumnsGarbled && schema.whole;
            if (object.type == "table"_L1 && (missing == 0 || isForeign))
                object.sql = stored->sql;
        }
        const bool isRight = damaged.kindOf(object.rootPage) == kindOf(object) && uses[object.rootPage] == 1;
        if (!isRight && kindOf(object) != TreeKind::None) {
            object.rootPage = likely ? likely->at({object.type, object.name}) : 0;
            if (damaged.kindOf(object.rootPage) != kindOf(object))
                object.rootPage = 0;
        }
        objects.push_back(object);
    }
    for (const SchemaObject &object : schema.objects) {
        if (!find(objects, object.type, object.name))
            objects.push_back(object);
    }
    schema.objects = std::move(objects);
}

} // namespace

bool tryCreate(SQLite::Database &database, const QString &sql)
{
    if (!sql.startsWith("create "_L1, Qt::CaseInsensitive))
        return false;
    // Nothing that a schema is made of reads rows; "create table ... as select" might go on for ever.
    const auto allow = [](void *, int action, const char *, const char *, const char *, const char *) {
        return action == SQLITE_SELECT ? SQLITE_DENY : SQLITE_OK;
    };
    sqlite3_set_authorizer(database.getHandle(), allow, nullptr);
    const auto lift = qScopeGuard([&] { sqlite3_set_authorizer(database.getHandle(), nullptr, nullptr); });
    try {
        SQLite::Statement(database, sql.toStdString()).exec(); // only the first of several
        return true;
    } catch (const SQLite::Exception &error) {
        const int code = error.getErrorCode();
        if (code != SQLITE_ERROR && code != SQLITE_CONSTRAINT && code != SQLITE_AUTH)
            throw;
        return false;
    }
}

QString textOf(const SalvagedValue &value)
{
    const auto *text = std::get_if<std::string>(&value);
    return text ? QString::fromStdString(*text) : QString();
}

std::int64_t integerOf(const SalvagedValue &value)
{
    const auto *number = std::get_if<std::int64_t>(&value);
    return number ? *number : 0;
}

SalvagedSchema readSchema(SalvageFile &damaged, const QByteArray &known)
{
    SalvagedSchema schema = readInItsEncoding(damaged);
    if (!known.isEmpty()) {
        KnownSchema knownSchema(known);
        supply(damaged, schema, knownSchema);
    }
    return schema;
}

} // namespace obelmark
