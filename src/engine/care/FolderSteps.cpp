// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/FolderSteps.h"

#include "engine/language/EngineError.h"
#include "runtime/SafeFile.h"
#include <QFile>
#include <QFileInfo>
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

void publish(const QString &unfinished, const QString &newPath)
{
    FolderSteps steps;
    // A second name never replaces a file; where there are none, a look before has to do.
    if (!steps.link(unfinished, newPath)) {
        if (QFileInfo::exists(newPath))
            throw EngineError(int(PathFileAccess), u"%1: There is a file of that name"_s.arg(newPath));
        steps.rename(unfinished, newPath);
    }
    steps.keep();
    flushToDisk(QFileInfo(newPath).path());
}

} // namespace obelmark
