#include "engine/care/FolderSteps.h"

#include "engine/language/EngineError.h"
#include <QFile>
#include <filesystem>

namespace obelmark {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

static fs::path native(const QString &path)
{
    return path.toStdString();
}

FolderSteps::~FolderSteps()
{
    for (auto undo = m_undo.rbegin(); undo != m_undo.rend(); ++undo)
        (*undo)();
}

void FolderSteps::rename(const QString &from, const QString &to)
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

bool FolderSteps::link(const QString &from, const QString &to)
{
    std::error_code error;
    fs::create_hard_link(native(from), native(to), error);
    if (error)
        return false;
    m_undo.push_back([to] { QFile::remove(to); });
    return true;
}

} // namespace obelmark
