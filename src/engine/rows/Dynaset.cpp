// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/Dynaset.h"
#include "engine/language/EngineError.h"
#include "engine/rows/DatabaseCore.h"
#include "engine/rows/OrderedTable.h"
#include "engine/rows/TableWriter.h"

namespace obelmark {

/// The cursor and the row being written; the look-ups are OrderedTable's, the writes TableWriter's.
class Dynaset::Private final : public OpenRecordset
{
public:
    Private(std::shared_ptr<DatabaseCore> core, const QString &sql);
    ~Private();
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    void invalidate() noexcept override;
    void requireOpen() const;

    /// A number that is right as long as nothing has been written since.
    struct Counted
    {
        quint64 asOf;
        qint64 rows;
    };

    enum class Place { BeforeFirst, OnRow, OnDeletedRow, BehindLast };

    /// Begins a move: nothing pending survives it.
    void beginMove();
    void moveToEnd(Direction direction);
    void step(Direction direction);
    void find(const QString &text, Direction direction, bool fromCurrentRow);

    void refresh();
    bool isCurrent(const std::optional<Counted> &counted) const;
    const OrderedRow &requireRow();
    bool isEmpty();
    int requireColumn(QStringView field) const;
    void requirePending() const;
    RowChange changeOf(RowChange::Kind kind, qint64 key, const std::vector<Value> &before,
                       const std::vector<Value> &after) const;
    void markDeleted();
    void writeChanges();

    struct Pending
    {
        qint64 newKey; ///< 0: the current row is being changed
        std::vector<Value> values;
        std::vector<bool> changed;
        std::vector<int> unreadable; ///< as in OrderedRow, without those written into since
    };

    std::shared_ptr<DatabaseCore> core;
    std::shared_ptr<OrderedTable> rows; ///< nothing once closed
    std::optional<TableWriter> writer;
    Place place = Place::BeforeFirst;
    OrderedRow current; ///< keeps its position when the row is deleted
    quint64 currentAsOf = 0;
    std::optional<Pending> pending;
    bool noMatch = false;
    std::optional<Counted> count;
    std::optional<Counted> emptiness;
    std::optional<Counted> rowsBefore; ///< in front of the current row
};

Dynaset::Private::Private(std::shared_ptr<DatabaseCore> databaseCore, const QString &sql)
    : core(std::move(databaseCore))
{
    rows = core->orderedTable(sql);
    core->meetFault(FaultPoint::Query);
    writer.emplace(*core, rows->table());
    if (auto row = rows->first(Direction::Forward)) {
        current = std::move(*row);
        place = Place::OnRow;
    } else {
        place = Place::BehindLast;
    }
    currentAsOf = core->changeCount();
    core->add(*this);
}

Dynaset::Private::~Private()
{
    core->remove(*this);
}

void Dynaset::Private::invalidate() noexcept
{
    pending.reset();
    writer.reset();
    rows.reset();
}

void Dynaset::Private::requireOpen() const
{
    if (!rows)
        throw EngineError(ObjectClosed);
}

/// Reads the current row anew when something has been written since it was read, maybe to it.
void Dynaset::Private::refresh()
{
    if (place != Place::OnRow || currentAsOf == core->changeCount())
        return;
    if (auto row = rows->row(current.position.key))
        current = std::move(*row);
    else
        place = Place::OnDeletedRow;
    currentAsOf = core->changeCount();
}

bool Dynaset::Private::isCurrent(const std::optional<Counted> &counted) const
{
    return counted && counted->asOf == core->changeCount();
}

const OrderedRow &Dynaset::Private::requireRow()
{
    refresh();
    if (place == Place::OnDeletedRow)
        throw EngineError(RecordDeleted);
    if (place != Place::OnRow)
        throw EngineError(NoCurrentRecord);
    return current;
}

bool Dynaset::Private::isEmpty()
{
    if (!isCurrent(emptiness))
        emptiness = {core->changeCount(), rows->isEmpty() ? 0 : 1};
    return emptiness->rows == 0;
}

int Dynaset::Private::requireColumn(QStringView field) const
{
    const int column = rows->table().find(field);
    if (column < 0)
        throw EngineError(UnknownColumn, field.toString());
    return column;
}

void Dynaset::Private::requirePending() const
{
    if (!pending)
        throw EngineError(UpdateWithoutEdit);
}

void Dynaset::Private::beginMove()
{
    requireOpen();
    pending.reset();
    core->meetFault(FaultPoint::Query);
    refresh();
}

void Dynaset::Private::moveToEnd(Direction direction)
{
    beginMove();
    auto row = rows->first(direction);
    if (!row) {
        place = Place::BehindLast;
        throw EngineError(NoCurrentRecord);
    }
    current = std::move(*row);
    place = Place::OnRow;
    rowsBefore.reset();
    if (direction == Direction::Forward)
        rowsBefore = {core->changeCount(), 0};
    else if (isCurrent(count))
        rowsBefore = {core->changeCount(), count->rows - 1};
}

void Dynaset::Private::step(Direction direction)
{
    const bool forward = direction == Direction::Forward;
    beginMove();
    if (place == (forward ? Place::BehindLast : Place::BeforeFirst))
        throw EngineError(NoCurrentRecord);
    const bool onRow = place == Place::OnRow || place == Place::OnDeletedRow;
    auto row = onRow ? rows->next(current.position, direction) : rows->first(direction);
    if (place == Place::OnRow && row && isCurrent(rowsBefore))
        rowsBefore->rows += forward ? 1 : -1;
    else
        rowsBefore.reset();
    if (row) {
        current = std::move(*row);
        place = Place::OnRow;
    } else if (onRow) {
        place = forward ? Place::BehindLast : Place::BeforeFirst;
    } else {
        throw EngineError(NoCurrentRecord);
    }
}

void Dynaset::Private::find(const QString &text, Direction direction, bool fromCurrentRow)
{
    beginMove();
    const bool onRow = place == Place::OnRow || place == Place::OnDeletedRow;
    if (fromCurrentRow && !onRow)
        throw EngineError(NoCurrentRecord);
    const Criteria criteria = translateCriteria(text, rows->table(), &core->schema());
    const auto key = core->reading(
        text, [&] { return rows->find(criteria, fromCurrentRow ? &current.position : nullptr, direction); });
    auto row = key ? rows->row(*key) : std::nullopt;
    noMatch = !row;
    if (row) {
        current = std::move(*row);
        place = Place::OnRow;
        rowsBefore.reset();
    }
}

RowChange Dynaset::Private::changeOf(RowChange::Kind kind, qint64 key, const std::vector<Value> &before,
                                     const std::vector<Value> &after) const
{
    const TableSchema &table = rows->table();
    RowChange change{kind, table.name(), key, {}};
    for (int i = 0; i < table.columnCount(); ++i) {
        const Value &was = before.empty() ? Value() : before[size_t(i)];
        const Value &is = after.empty() ? Value() : after[size_t(i)];
        if (i != table.keyColumn() && !table.column(i).isCompanion && was != is)
            change.fields.push_back({table.column(i).name, was, is});
    }
    return change;
}

void Dynaset::Private::markDeleted()
{
    place = Place::OnDeletedRow;
    throw EngineError(RecordDeleted);
}

void Dynaset::Private::writeChanges()
{
    const bool anything =
        std::find(pending->changed.begin(), pending->changed.end(), true) != pending->changed.end();
    const qint64 key = current.position.key;
    const bool found =
        anything ? writer->update(key, pending->values, pending->changed) : rows->row(key).has_value();
    if (!found)
        markDeleted();
}

Dynaset::Dynaset(std::unique_ptr<Private> p) : d(std::move(p)) {}

Dynaset::~Dynaset() = default;

std::unique_ptr<Dynaset> Database::openDynaset(const QString &sql)
{
    return std::unique_ptr<Dynaset>(new Dynaset(std::make_unique<Dynaset::Private>(d, sql)));
}

bool Dynaset::bof() const
{
    d->requireOpen();
    return d->place == Private::Place::BeforeFirst ||
           (d->place == Private::Place::BehindLast && d->isEmpty());
}

bool Dynaset::eof() const
{
    d->requireOpen();
    return d->place == Private::Place::BehindLast ||
           (d->place == Private::Place::BeforeFirst && d->isEmpty());
}

bool Dynaset::isEmpty() const
{
    d->requireOpen();
    return d->isEmpty();
}

qint64 Dynaset::recordCount() const
{
    d->requireOpen();
    if (!d->isCurrent(d->count))
        d->count = {d->core->changeCount(), d->rows->count()};
    return d->count->rows;
}

qint64 Dynaset::position() const
{
    d->requireOpen();
    d->refresh();
    if (d->place != Private::Place::OnRow)
        return 0;
    if (!d->isCurrent(d->rowsBefore))
        d->rowsBefore = {d->core->changeCount(), d->rows->countBefore(d->current.position)};
    return d->rowsBefore->rows + 1;
}

void Dynaset::moveFirst()
{
    d->moveToEnd(Direction::Forward);
}

void Dynaset::moveLast()
{
    d->moveToEnd(Direction::Backward);
}

void Dynaset::moveNext()
{
    d->step(Direction::Forward);
}

void Dynaset::movePrevious()
{
    d->step(Direction::Backward);
}

void Dynaset::findFirst(const QString &criteria)
{
    d->find(criteria, Direction::Forward, false);
}

void Dynaset::findNext(const QString &criteria)
{
    d->find(criteria, Direction::Forward, true);
}

void Dynaset::findPrevious(const QString &criteria)
{
    d->find(criteria, Direction::Backward, true);
}

void Dynaset::findLast(const QString &criteria)
{
    d->find(criteria, Direction::Backward, false);
}

bool Dynaset::noMatch() const
{
    d->requireOpen();
    return d->noMatch;
}

Value Dynaset::value(QStringView field) const
{
    d->requireOpen();
    const std::vector<Value> &values = d->pending ? d->pending->values : d->requireRow().values;
    return values[size_t(d->requireColumn(field))];
}

void Dynaset::close()
{
    d->requireOpen();
    d->core->remove(*d);
    d->invalidate();
}

void Dynaset::addNew()
{
    d->requireOpen();
    d->pending.reset();
    const TableSchema &table = d->rows->table();
    std::vector<Value> values = d->writer->blankRow();
    const qint64 key = d->core->reserveKey(table);
    if (table.keyColumn() >= 0)
        values[size_t(table.keyColumn())] = key;
    d->pending = {key, std::move(values), {}, {}};
}

void Dynaset::edit()
{
    d->requireOpen();
    d->pending.reset();
    const OrderedRow &row = d->requireRow();
    d->pending = {0, row.values, std::vector<bool>(row.values.size()), row.unreadable};
}

void Dynaset::setValue(QStringView field, const Value &value)
{
    d->requireOpen();
    d->requirePending();
    const TableSchema &table = d->rows->table();
    const int column = d->requireColumn(field);
    if (column == table.keyColumn() || table.column(column).isCompanion)
        throw EngineError(DataTypeConversion);
    Private::Pending &pending = *d->pending;
    Value &held = pending.values[size_t(column)];
    const ColumnType &type = table.column(column).type;
    const auto unreadable = std::ranges::find(pending.unreadable, column);
    // What another tool has stored may be more than fits; it is no fault of who writes it back unchanged.
    // Bytes in a column of texts show as an empty text, which is no reason to lose them; in others null is
    // meant.
    const bool isUnchanged = unreadable == pending.unreadable.end()
                                 ? held == value
                                 : type.kind == ColumnKind::Text && value.toText().isEmpty();
    if (isUnchanged)
        return;
    checkFits(value, type);
    if (unreadable != pending.unreadable.end())
        pending.unreadable.erase(unreadable);
    if (pending.newKey == 0)
        pending.changed[size_t(column)] = true;
    held = value;
}

void Dynaset::update()
{
    d->requireOpen();
    d->requirePending();
    d->core->meetFault(FaultPoint::Update);
    if (d->pending->newKey != 0)
        d->writer->insert(d->pending->newKey, d->pending->values);
    else
        d->writeChanges();
    d->pending.reset();
}

RowChange Dynaset::pendingChange() const
{
    d->requireOpen();
    d->requirePending();
    const Private::Pending &pending = *d->pending;
    if (pending.newKey != 0)
        return d->changeOf(RowChange::Kind::Added, pending.newKey, {}, pending.values);
    // Only what has been written into is written.
    const OrderedRow &row = d->requireRow();
    std::vector<Value> after = row.values;
    for (size_t i = 0; i < after.size(); ++i) {
        if (pending.changed[i])
            after[i] = pending.values[i];
    }
    return d->changeOf(RowChange::Kind::Changed, row.position.key, row.values, after);
}

void Dynaset::cancelUpdate()
{
    d->requireOpen();
    d->requirePending();
    d->pending.reset();
}

void Dynaset::remove()
{
    d->requireOpen();
    d->pending.reset();
    const qint64 key = d->requireRow().position.key;
    d->core->meetFault(FaultPoint::Delete);
    if (!d->writer->remove(key))
        d->markDeleted();
    d->place = Private::Place::OnDeletedRow;
}

RowChange Dynaset::removal() const
{
    d->requireOpen();
    const OrderedRow &row = d->requireRow();
    return d->changeOf(RowChange::Kind::Deleted, row.position.key, row.values, {});
}

} // namespace obelmark
