#include "engine/DatabaseCore.h"
#include "engine/Dialect.h"
#include "engine/EngineError.h"
#include "engine/ResultColumns.h"
#include "engine/Snapshot.h"
#include "engine/SqlValue.h"

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

ForwardOnly::Private::Private(std::shared_ptr<DatabaseCore> databaseCore, const QString &query)
    : core(std::move(databaseCore)), sql(query)
{
    core->meetFault(FaultPoint::Query);
    core->reading(sql, [&] {
        source.emplace(core->connection(), translateSelect(sql, core->schema()).sql);
        columns = resultColumns(*source, {});
    });
    step();
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
    const int column = d->columns->find(field);
    if (column < 0)
        throw EngineError(UnknownColumn, field.toString());
    return toValue(cellAt(*d->source, column), d->columns->column(column).type);
}

void ForwardOnly::close()
{
    d->requireOpen();
    d->core->remove(*d);
    d->invalidate();
}

} // namespace obelmark
