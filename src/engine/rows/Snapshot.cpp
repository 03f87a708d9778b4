// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/Snapshot.h"
#include "engine/language/Dialect.h"
#include "engine/language/EngineError.h"
#include "engine/rows/DatabaseCore.h"
#include "engine/rows/ResultColumns.h"
#include "engine/rows/RowSearch.h"
#include "engine/rows/RowStore.h"

namespace obelmark {

using namespace Qt::StringLiterals;

class Snapshot::Private final : public OpenRecordset
{
public:
    Private(std::shared_ptr<DatabaseCore> core, const QString &sql);
    ~Private();
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    void invalidate() noexcept override;
    void requireOpen() const;
    void requireCurrent() const;
    void moveTo(qint64 target);
    void find(const QString &criteria, qint64 first, bool backward);

    struct Contents
    {
        explicit Contents(TableSchema &&resultColumns) : columns(std::move(resultColumns)) {}

        TableSchema columns;
        RowStore rows;
        std::optional<RowSearch> search; ///< made by the first find
    };

    std::shared_ptr<DatabaseCore> core;
    std::unique_ptr<Contents> contents; ///< nothing once closed
    qint64 rowCount = 0;
    qint64 current = 0; ///< -1 before the first row, rowCount behind the last
    bool noMatch = false;
};

Snapshot::Private::Private(std::shared_ptr<DatabaseCore> databaseCore, const QString &sql)
    : core(std::move(databaseCore))
{
    core->meetFault(FaultPoint::Query);
    core->reading(sql, [&] {
        const SelectQuery query = translateSelect(sql, core->schema());
        SQLite::Statement statement(core->connection(), query.sql);
        const QString name = query.firstTable.isEmpty() ? u"snapshot"_s : query.firstTable;
        contents = std::make_unique<Contents>(resultColumns(statement, name));
        while (statement.executeStep())
            contents->rows.append(statement);
    });
    rowCount = contents->rows.rowCount();
    core->add(*this);
}

Snapshot::Private::~Private()
{
    core->remove(*this);
}

void Snapshot::Private::invalidate() noexcept
{
    contents.reset();
}

void Snapshot::Private::requireOpen() const
{
    if (!contents)
        throw EngineError(ObjectClosed);
}

void Snapshot::Private::requireCurrent() const
{
    requireOpen();
    if (current < 0 || current >= rowCount)
        throw EngineError(NoCurrentRecord);
}

/// To a row, or to one of the places outside the rows that border on the current one.
void Snapshot::Private::moveTo(qint64 target)
{
    requireOpen();
    if (rowCount == 0 || target < -1 || target > rowCount)
        throw EngineError(NoCurrentRecord);
    current = target;
}

void Snapshot::Private::find(const QString &criteria, qint64 first, bool backward)
{
    requireOpen();
    const qint64 found = core->reading(criteria, [&] {
        if (!contents->search)
            contents->search.emplace(contents->rows, contents->columns);
        return contents->search->find(criteria, first, backward);
    });
    noMatch = found < 0;
    current = noMatch ? current : found;
}

Snapshot::Snapshot(std::unique_ptr<Private> p) : d(std::move(p)) {}

Snapshot::~Snapshot() = default;

std::unique_ptr<Snapshot> Database::openSnapshot(const QString &sql)
{
    return std::unique_ptr<Snapshot>(new Snapshot(std::make_unique<Snapshot::Private>(d, sql)));
}

bool Snapshot::bof() const
{
    d->requireOpen();
    return d->current < 0 || d->rowCount == 0;
}

bool Snapshot::eof() const
{
    d->requireOpen();
    return d->current >= d->rowCount;
}

bool Snapshot::isEmpty() const
{
    d->requireOpen();
    return d->rowCount == 0;
}

qint64 Snapshot::recordCount() const
{
    d->requireOpen();
    return d->rowCount;
}

void Snapshot::moveFirst()
{
    d->moveTo(0);
}

void Snapshot::moveLast()
{
    d->moveTo(d->rowCount - 1);
}

void Snapshot::moveNext()
{
    d->moveTo(d->current + 1);
}

void Snapshot::movePrevious()
{
    d->moveTo(d->current - 1);
}

void Snapshot::findFirst(const QString &criteria)
{
    d->find(criteria, 0, false);
}

void Snapshot::findNext(const QString &criteria)
{
    d->requireCurrent();
    d->find(criteria, d->current + 1, false);
}

void Snapshot::findPrevious(const QString &criteria)
{
    d->requireCurrent();
    d->find(criteria, d->current - 1, true);
}

void Snapshot::findLast(const QString &criteria)
{
    d->find(criteria, d->rowCount - 1, true);
}

bool Snapshot::noMatch() const
{
    d->requireOpen();
    return d->noMatch;
}

Value Snapshot::value(QStringView field) const
{
    d->requireCurrent();
    const TableSchema &columns = d->contents->columns;
    const int column = columns.find(field);
    if (column < 0)
        throw EngineError(UnknownColumn, field.toString());
    return toValue(d->contents->rows.cell(d->current, column), columns.column(column).type);
}

void Snapshot::close()
{
    d->requireOpen();
    d->core->remove(*d);
    d->invalidate();
}

} // namespace obelmark
