// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Dialect.h"
#include "engine/language/EngineError.h"
#include "engine/language/SqlValue.h"
#include "engine/rows/DatabaseCore.h"
#include "engine/rows/ResultColumns.h"
#include "engine/rows/Snapshot.h"

namespace obelmark {

class ForwardOnly::Private final : public OpenRecordset
{
public:
    Private(std::shared_ptr<DatabaseCore> core, const QString &sql);
    ~Private();
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    void invalidate() noexcept override;
    void requireOpen() const;
    void requireCurrent() const;
    void step();

    std::shared_ptr<DatabaseCore> core;
    QString sql;
    std::optional<TableSchema> columns;      ///< nothing once closed
    std::optional<SQLite::Statement> source; ///< on the current row; nothing at the end
};

namespace {

/// A query that has to sort does so before its first row. What does not fit into the page cache goes to
/// temporary files meanwhile: the rows of a large collection would fill the memory.
class SortingInFiles
{
public:
    explicit SortingInFiles(SQLite::Database &connection) : m_connection(connection)
    {
        m_connection.tryExec("pragma temp_store = file");
    }
    ~SortingInFiles() { m_connection.tryExec("pragma temp_store = memory"); }
    SortingInFiles(const SortingInFiles &) = delete;
    SortingInFiles &operator=(const SortingInFiles &) = delete;

private:
    SQLite::Database &m_connection;
};

} // namespace

ForwardOnly::Private::Private(std::shared_ptr<DatabaseCore> databaseCore, const QString &query)
    : core(std::move(databaseCore)), sql(query)
{
    core->meetFault(FaultPoint::Query);
    core->reading(sql, [&] {
        source.emplace(core->connection(), translateSelect(sql, core->schema()).sql);
        columns = resultColumns(*source, {});
    });
    {
        const SortingInFiles files(core->connection());
        step();
    }
    core->add(*this);
}

ForwardOnly::Private::~Private()
{
    core->remove(*this);
}

void ForwardOnly::Private::invalidate() noexcept
{
    source.reset();
    columns.reset();
}

void ForwardOnly::Private::requireOpen() const
{
    if (!columns)
        throw EngineError(ObjectClosed);
}

void ForwardOnly::Private::requireCurrent() const
{
    requireOpen();
    if (!source)
        throw EngineError(NoCurrentRecord);
}

void ForwardOnly::Private::step()
{
    if (!core->reading(sql, [&] { return source->executeStep(); }))
        source.reset();
}

ForwardOnly::ForwardOnly(std::unique_ptr<Private> p) : d(std::move(p)) {}

ForwardOnly::~ForwardOnly() = default;

std::unique_ptr<ForwardOnly> Database::openForwardOnly(const QString &sql)
{
    return std::unique_ptr<ForwardOnly>(new ForwardOnly(std::make_unique<ForwardOnly::Private>(d, sql)));
}

bool ForwardOnly::eof() const
{
    d->requireOpen();
    return !d->source;
}

void ForwardOnly::moveNext()
{
    d->requireCurrent();
    d->step();
}

Value ForwardOnly::value(QStringView field) const
{
    d->requireCurrent();
    return value(position(field));
}

int ForwardOnly::position(QStringView field) const
{
    d->requireOpen();
    const int column = d->columns->find(field);
    if (column < 0)
        throw EngineError(UnknownColumn, field.toString());
    return column;
}

Value ForwardOnly::value(int position) const
{
    d->requireCurrent();
    return toValue(cellAt(*d->source, position), d->columns->column(position).type);
}

void ForwardOnly::close()
{
    d->requireOpen();
    d->core->remove(*d);
    d->invalidate();
}

} // namespace obelmark
