#include "engine/Database.h"
#include "engine/DatabaseCore.h"

namespace obelmark {

std::unique_ptr<Database> Database::open(const QString &path, Access access,
                                         const QStringList &requiredTables, const FaultHook &faultHook,
                                         const FileProgress &progress)
{
    return std::unique_ptr<Database>(
        new Database(std::make_shared<DatabaseCore>(path, access, requiredTables, faultHook, progress)));
}

Database::Database(std::shared_ptr<DatabaseCore> core) : d(std::move(core)) {}

Database::~Database()
{
    d->close();
}

const QString &Database::path() const
{
    return d->path();
}

void Database::setFaultHook(const FaultHook &faultHook)
{
    d->setFaultHook(faultHook);
}

} // namespace obelmark
