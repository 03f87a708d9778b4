// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/NewFile.h"

#include "engine/care/ErrorMapping.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include "engine/language/Schema.h"
#include "engine/language/SqlValue.h"
#include "old_collections/FittedValue.h"
#include "runtime/SafeFile.h"
#include <QMap>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <limits>
#include <optional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

struct NewFile::Private
{
    struct Place
    {
        int source; ///< the column of the old table
        const Column *column;
    };

    Private(const QString &newPath, const Pulse &tellPulse) : path(newPath), pulse(tellPulse)
    {
        database.emplace(newPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    }

    void make(const QByteArray &script)
    {
        // Nothing need survive a crash: the file counts for nothing before it is complete.
        database->exec("pragma journal_mode = memory; pragma synchronous = off; begin");
        database->exec(script.toStdString());
        schema.emplace(*database);
        for (const auto &table : schema->tables()) {
            if (table->name().startsWith("sqlite_"_L1))
                continue;
            // What the delivered file comes with gives way to the user's own.
            database->exec("delete from " + quoted(table->name()));
            report.tables << TakeOverReport::Table{table->name()};
        }
    }

    void begin(const OldTable &table)
    {
        insert.reset();
        places.clear();
        columns = table.columns;
        line = nullptr;
        target = schema->table(table.name);
        if (target && columns.isEmpty())
            return; // told by the way, while another table was asked for
        if (!target) {
            report.otherTables.insert(table.name, table.declaredRows);
            return;
        }
        line = &*std::find_if(report.tables.begin(), report.tables.end(),
                              [&](const auto &each) { return each.name == target->name(); });
        line->isInOldFile = true;
        line->declared = table.declaredRows;
        std::string names;
        std::string marks;
        for (const Column &column : target->columns()) {
            const int source = indexOf(column.name);
            if (source >= 0) {
                names += (names.empty() ? "" : ", ") + quoted(column.name);
                marks += marks.empty() ? "?" : ", ?";
                places.push_back({source, &column});
            } else if (!column.isCompanion) {
                line->missingColumns << column.name;
            }
        }
        if (!places.empty())
            insert.emplace(*database, "insert into " + quoted(target->name()) + " (" + names + ") values (" +
                                          marks + ")");
        keyColumn = target->keyColumn() < 0 ? nullptr : &target->column(target->keyColumn());
        line->hasKey = !keyColumn || indexOf(keyColumn->name) >= 0;
        rowsDone = 0;
        lastCounters.insert(target->name(), table.lastCounter);
    }

    int indexOf(const QString &column) const
    {
        const auto isIt = [&](const QString &each) { return sameName(each, column); };
        const auto found = std::find_if(columns.begin(), columns.end(), isIt);
        return found == columns.end() ? -1 : int(found - columns.begin());
    }

    void add(const OldRow &row)
    {
        pulse(line->name, rowsDone, line->declared);
        ++rowsDone;
        if (!insert || row.values.size() != size_t(columns.size()) || !write(row))
            ++line->unreadableRows;
        else
            countLeftOver(row);
    }

    bool write(const OldRow &row)
    {
        QStringList lost;
        bool hasKey = target->keyColumn() < 0;
        insert->tryReset(); // the error of a row that was refused is done with
        for (size_t i = 0; i < places.size(); ++i) {
            const auto &[source, column] = places[i];
            const auto value = fitted(row.values[size_t(source)], column->type);
            bindValue(*insert, int(i) + 1, toSqlValue(value.value_or(Value())));
            if (column == keyColumn)
                hasKey = value && !value->isNull();
            if (!value || row.unreadable.contains(source))
                lost << column->name;
        }
        if (!hasKey || !carriedOut())
            return false;
        for (const QString &column : lost)
            ++line->lost[column];
        return true;
    }

    /// False when the table refuses the row: its key has been there before.
    bool carriedOut()
    {
        try {
            insert->exec();
            return true;
        } catch (const SQLite::Exception &error) {
            if (error.getErrorCode() != SQLITE_CONSTRAINT)
                throw;
            return false;
        }
    }

    void countLeftOver(const OldRow &row)
    {
        for (int i = 0; i < columns.size(); ++i) {
            const Value &value = row.values[size_t(i)];
            const bool isEmpty = value.isNull() || value == Value(false) || value == Value(QString());
            if ((!isEmpty || row.unreadable.contains(i)) && target->find(columns[i]) < 0)
                ++line->leftOver[columns[i]];
        }
    }

    /// Counters go on behind the last value ever given, deleted rows included.
    void setCounters()
    {
        if (!database->tableExists("sqlite_sequence"))
            return;
        SQLite::Statement raise(*database, "update sqlite_sequence set seq = max(seq, ?2) where name = ?1");
        SQLite::Statement add(*database,
                              "insert into sqlite_sequence (name, seq) select ?1, ?2 where not exists "
                              "(select 1 from sqlite_sequence where name = ?1)");
        for (auto each = lastCounters.begin(); each != lastCounters.end(); ++each) {
            // A counter at its end is garbage, or of no use.
            if (each.value() <= 0 || each.value() >= std::numeric_limits<qint32>::max())
                continue;
            for (SQLite::Statement *statement : {&raise, &add}) {
                statement->reset();
                statement->bind(1, each.key().toStdString());
                bindValue(*statement, 2, each.value());
                statement->exec();
            }
        }
    }

    /// What is in the file, not what should be.
    void countRows()
    {
        for (auto &table : report.tables)
            table.taken = database->execAndGet("select count(*) from " + quoted(table.name)).getInt64();
    }

    QString path;
    Pulse pulse;
    std::optional<SQLite::Database> database;
    std::optional<Schema> schema;
    std::optional<SQLite::Statement> insert;
    std::vector<Place> places;
    QStringList columns; ///< of the old table
    const TableSchema *target = nullptr;
    const Column *keyColumn = nullptr;
    qint64 rowsDone = 0;
    TakeOverReport report;
    TakeOverReport::Table *line = nullptr;
    QMap<QString, qint64> lastCounters;

    template<class Work>
    auto guarded(Work &&work)
    {
        return withSqlErrors({SqlActivity::Kind::Writing, path, {}}, std::forward<Work>(work));
    }
};

NewFile::NewFile(const QString &path, const QByteArray &schema, const Pulse &pulse)
{
    withSqlErrors({SqlActivity::Kind::Opening, path, {}},
                  [&] { d = std::make_unique<Private>(path, pulse); });
    d->guarded([&] { d->make(schema); });
}

NewFile::~NewFile() = default;

QStringList NewFile::tables() const
{
    QStringList names;
    for (const auto &table : d->report.tables)
        names << table.name;
    return names;
}

void NewFile::beginTable(const OldTable &table)
{
    d->guarded([&] { d->begin(table); });
}

void NewFile::row(const OldRow &row)
{
    if (d->line)
        d->guarded([&] { d->add(row); });
}

void NewFile::unreadableRow()
{
    if (d->line)
        ++d->line->unreadableRows;
}

TakeOverReport NewFile::finish(bool readToEnd)
{
    d->guarded([&] {
        d->insert.reset();
        d->setCounters();
        d->database->exec("commit");
        d->countRows();
        if (d->database->execAndGet("pragma integrity_check").getString() != "ok")
            throw EngineError(DatabaseDamaged, d->path);
        d->schema.reset();
        d->database.reset();
    });
    flushToDisk(d->path);
    d->report.readToEnd = readToEnd;
    return d->report;
}

} // namespace obelmark
