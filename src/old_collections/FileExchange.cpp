// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/FileExchange.h"

#include "engine/care/FolderSteps.h"
#include "engine/care/JournalFiles.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace obelmark {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr qint64 copyPiece = 1 << 20;

QString withMark(const QString &path, const QString &mark)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    return file.dir().filePath(file.completeBaseName() + u'-' + mark + suffix);
}

bool isFree(const QString &name)
{
    return !QFileInfo::exists(name) &&
           std::none_of(journalSuffixes.begin(), journalSuffixes.end(),
                        [&](QLatin1StringView suffix) { return QFileInfo::exists(name + suffix); });
}

/// Whether these are two names of one file.
bool isSameFile(const QString &name, const QString &other)
{
    std::error_code isNone;
    return fs::equivalent(name.toStdString(), other.toStdString(), isNone);
}

void copyFile(const QString &from, const QString &to)
{
    QFile source(from);
    SafeFile copy(to);
    if (source.open(QIODevice::ReadOnly)) {
        while (!source.atEnd() && source.error() == QFileDevice::NoError)
            copy.write(source.read(copyPiece));
    }
    if (source.error() != QFileDevice::NoError)
        throw NumberedError(PathFileAccess, u"%1: %2"_s.arg(from, source.errorString()));
    copy.commit();
}

} // namespace

QString nameForNew(const QString &path)
{
    return withMark(path, u"taking-over"_s);
}

QString nameForOld(const QString &path)
{
    for (int attempt = 1;; ++attempt) {
        const QString name = withMark(path, attempt > 1 ? u"old-%1"_s.arg(attempt) : u"old"_s);
        // The file has that name already when the machine stopped between the two steps of exchangeFiles().
        if (isFree(name) || isSameFile(path, name))
            return name;
    }
}

QString exchangeFiles(const QString &path, const QString &newPath)
{
    const QString folder = QFileInfo(path).path();
    const QString keptPath = nameForOld(path);
    FolderSteps steps;
    // Memory sticks know no second names: there it is a copy.
    if (!QFileInfo::exists(keptPath) && !steps.link(path, keptPath))
        copyFile(path, keptPath);
    // A journal here is that of another file that once had this name. Beside the new one, it would be
    // "undone" in it.
    for (const QLatin1StringView suffix : journalSuffixes) {
        if (QFileInfo::exists(path + suffix))
            steps.rename(path + suffix, keptPath + suffix);
    }
    QFile::setPermissions(newPath, QFile::permissions(path));
    // The second name has to be on the disk before the first one is given away.
    flushToDisk(folder);
    steps.rename(newPath, path);
    steps.keep();
    flushToDisk(folder);
    return keptPath;
}

} // namespace obelmark
