#include "engine/Repair.h"

#include "engine/EngineError.h"
#include "engine/ErrorMapping.h"
#include "engine/RepairCopy.h"
#include "engine/SalvageFile.h"
#include "runtime/SafeFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <sqlite3.h>
#include <vector>

namespace obelmark {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// What lies beside a database file and tells how to finish or undo a write. It must never come to lie beside
/// another file of that name.
constexpr std::array companions{"-journal"_L1, "-wal"_L1, "-shm"_L1};

fs::path native(const QString &path)
{
    return path.toStdString();
}

/// Lets the library undo or finish what an interrupted write has left, as at every opening.
void settle(const QString &path)
{
    if (QFileInfo(path).size() == 0) // the library would make an empty database of it
        return;
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
        database.exec("begin exclusive; commit; pragma journal_mode = delete");
    } catch (const SQLite::Exception &error) {
        if (error.getErrorCode() == SQLITE_BUSY)
            throw EngineError(FileInUse, path);
        // Any other failure is the damage that we are here for.
    }
}

/// A free name beside the file: "coin-damaged.mdb", "coin-damaged-2.mdb" and so on.
QString freeName(const QString &path, QLatin1StringView role)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    for (int attempt = 1;; ++attempt) {
        const QString number = attempt > 1 ? u"-%1"_s.arg(attempt) : QString();
        const QString name = file.dir().filePath(file.completeBaseName() + u'-' + role + number + suffix);
        const auto isTaken = [&](QLatin1StringView companion) { return QFileInfo::exists(name + companion); };
        if (!QFileInfo::exists(name) && std::none_of(companions.begin(), companions.end(), isTaken))
            return name;
    }
}

/// Steps on the folder that are undone, the last first, unless they are kept.
class FolderSteps
{
public:
    FolderSteps() = default;
    ~FolderSteps()
    {
        for (auto undo = m_undo.rbegin(); undo != m_undo.rend(); ++undo)
            (*undo)();
    }
    Q_DISABLE_COPY(FolderSteps)

    void rename(const QString &from, const QString &to)
    {
        std::error_code error;
        fs::rename(native(from), native(to), error);
        if (error)
            throw EngineError(error == std::errc::no_space_on_device ? DiskFull : PathFileAccess,
                              u"%1: %2"_s.arg(from, QString::fromStdString(error.message())));
        m_undo.push_back([from, to] {
            std::error_code ignored;
            fs::rename(native(to), native(from), ignored);
        });
    }
    /// Whether the file system can give a file a second name.
    bool link(const QString &from, const QString &to)
    {
        std::error_code error;
        fs::create_hard_link(native(from), native(to), error);
        if (error)
            return false;
        m_undo.push_back([to] { QFile::remove(to); });
        return true;
    }
    void keep() { m_undo.clear(); }

private:
    std::vector<std::function<void()>> m_undo;
};

/// Puts the new file in the place of the damaged one and returns the latter's new name. Where the file system
/// allows it, there is a file of the old name at every instant.
QString replaceDamaged(const QString &path, const QString &newPath)
{
    const QString folder = QFileInfo(path).path();
    const QString damagedPath = freeName(path, "damaged"_L1);
    FolderSteps steps;
    if (!steps.link(path, damagedPath))
        steps.rename(path, damagedPath);
    for (const QLatin1StringView companion : companions) {
        if (QFileInfo::exists(path + companion))
            steps.rename(path + companion, damagedPath + companion);
    }
    flushToDisk(folder);
    steps.rename(newPath, path);
    steps.keep();
    flushToDisk(folder);
    return damagedPath;
}

} // namespace

RepairReport repairDatabase(const QString &path, const QString &keyTable)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    if (file.isEmpty())
        throw EngineError(DatabaseFileNotFound, path);
    settle(file);
    SalvageFile damaged(file);
    const QString newPath = freeName(file, "repairing"_L1);
    const auto cleanUp = qScopeGuard([&] { QFile::remove(newPath); });

    RepairReport report;
    report.tables = withSqlErrors({SqlActivity::Kind::Writing, newPath, {}},
                                  [&] { return copyReadable(damaged, newPath, keyTable); });
    QFile::setPermissions(newPath, QFile::permissions(file));
    flushToDisk(newPath);
    report.damagedFilePath = replaceDamaged(file, newPath);
    return report;
}

} // namespace obelmark
