// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/OwnFiles.h"

#include "common/SharedState.h"
#include "common/TextHelpers.h"
#include "runtime/NumberedError.h"
#include <QFileInfo>
#include <QRegularExpression>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Databases of the collection in any role (in use, packed, packed before, taken over, damaged), the field
/// catalogue, the help, and what SQLite keeps beside a database while it writes.
bool isNameInProgramFolder(const QString &name)
{
    static const QRegularExpression own(
        u"^(coin(db|new|-old|-damaged|-repairing|-taking-over)?(-\\d+)?|rptspec)\\.(mdb|bak|hlp)"
        "(-journal|-wal|-shm)?$"_s,
        QRegularExpression::CaseInsensitiveOption);
    return own.match(name).hasMatch();
}

bool isNameOfPicture(const QString &name)
{
    static const QRegularExpression picture(u"^\\d{8}\\."_s);
    return picture.match(name).hasMatch();
}

/// The path without links and dots, whether the file exists or not.
QFileInfo trueFile(const QString &path)
{
    const QFileInfo file(path);
    if (file.exists())
        return QFileInfo(file.canonicalFilePath());
    return QFileInfo(QFileInfo(file.absolutePath()).canonicalFilePath() + u'/' + file.fileName());
}

} // namespace

void requireForeignFile(const QString &path, const SharedState &shared)
{
    const QFileInfo target = trueFile(path);
    const QString programFolder = QFileInfo(shared.AppFolder).canonicalFilePath();
    const QString pictures = QFileInfo(pathInAnyCase(shared.AppFolder, u"images"_s)).canonicalFilePath();
    // Not the QFileInfos: two files that do not exist are equal to it.
    const auto isAt = [&](const QString &own) { return target.filePath() == trueFile(own).filePath(); };
    const bool isOwn = isAt(shared.DatabasePath) || isAt(shared.HelpFilePath) ||
                       (target.path() == programFolder && isNameInProgramFolder(target.fileName())) ||
                       (target.path() == pictures && (target.exists() || isNameOfPicture(target.fileName())));
    if (isOwn)
        throw NumberedError(PermissionDenied, u"'%1' belongs to the collection."_s.arg(path));
}

} // namespace obelmark
