// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/TakeOver.h"

#include "common/TextHelpers.h"
#include "desktop/Desktop.h"
#include "engine/care/JournalFiles.h"
#include "old_collections/FileExchange.h"
#include "old_collections/NewFile.h"
#include "old_collections/OldFile.h"
#include "old_collections/ReadApart.h"
#include "runtime/NumberedError.h"
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <array>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

struct KnownFile
{
    QLatin1StringView name;
    QLatin1StringView schema;   ///< the name of its schema among the resources
    QLatin1StringView keyTable; ///< without it the file is something else
    bool isNeeded;              ///< the program cannot go on without
};

constexpr std::array knownFiles{
    KnownFile{"coin.mdb"_L1, "coin.sql"_L1, "Coin"_L1, true},
    KnownFile{"rptspec.mdb"_L1, "rptspec.sql"_L1, "RptSpec"_L1, false},
};

QString boxTitle()
{
    return u"Older Version"_s;
}

QByteArray schemaOf(const KnownFile &known)
{
    QFile script(":/old_collections/"_L1 + known.schema);
    if (!script.open(QIODevice::ReadOnly))
        qFatal("the schema %s is missing in the program", known.schema.data());
    return script.readAll();
}

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

/// "'coin.mdb'" or "'coin.mdb' and 'rptspec.mdb'".
QString listed(const QStringList &names)
{
    return u'\'' + names.join(u"' and '"_s) + u'\'';
}

bool userAgrees(const QStringList &paths, Desktop &desktop)
{
    QStringList names;
    QStringList keptNames;
    for (const QString &path : paths) {
        names << nameOf(path);
        keptNames << nameOf(nameForOld(path));
    }
    const QString oneFile =
        u"%1 in the program folder was written by an older version of this program, whose "
        "files this version cannot use as they are.  The contents can be taken over into "
        "a new file.\n\nNothing is lost: the old file is kept as %2."_s;
    const QString twoFiles =
        u"%1 in the program folder were written by an older version of this program, whose "
        "files this version cannot use as they are.  The contents can be taken over into "
        "new files.\n\nNothing is lost: the old files are kept as %2."_s;
    const QString question = u"\n\nDo you wish to take over the contents now?  If not, the program ends and "
                             "nothing is changed."_s;
    return desktop.askYesNo((paths.size() == 1 ? oneFile : twoFiles).arg(listed(names), listed(keptNames)) +
                                question,
                            boxTitle()) == Desktop::Answer::Yes;
}

/// Writes what can be read into the new file.
TakeOverReport fillNewFile(const KnownFile &known, const QString &oldPath, const QString &newPath,
                           Desktop &desktop)
{
    const auto progress = desktop.showProgress(u"Taking Over '%1'"_s.arg(nameOf(oldPath)), false);
    NewFile newFile(newPath, schemaOf(known), [&](const QString &table, qint64 done, qint64 total) {
        progress->update(u"Records of %1"_s.arg(table), done, total);
    });
    bool readToEnd = true;
    // One by one: what is damaged in one table must not cost the others.
    for (const QString &table : newFile.tables())
        readToEnd = readOldFileApart(oldPath, table, newFile) && readToEnd;
    return newFile.finish(readToEnd);
}

/// Nothing when the user does not want a damaged file's remains.
std::optional<QString> takeOver(const KnownFile &known, const QString &path, Desktop &desktop)
{
    const QString newPath = nameForNew(path);
    const auto removeNew = [&] {
        QFile::remove(newPath);
        removeJournals(newPath);
    };
    removeNew(); // of a run that was cut off
    const auto cleanUp = qScopeGuard(removeNew);
    const TakeOverReport report = fillNewFile(known, path, newPath, desktop);
    const TakeOverReport::Table *keyTable = report.table(known.keyTable);
    if (!keyTable || !keyTable->isInOldFile)
        throw OldFileError(
            report.readToEnd
                ? u"It has no table '%1':  it is damaged, or no file of this program."_s.arg(known.keyTable)
                : u"It is damaged and cannot be read."_s);
    if (!keyTable->hasKey || (keyTable->taken == 0 && keyTable->declared > 0))
        throw OldFileError(u"It is damaged: no record of its table '%1' can be read."_s.arg(known.keyTable));
    if (report.isDamaged() &&
        desktop.askYesNo(u"'%1' is damaged: not everything in it can be read.\n\n%2\n\n"
                         "Do you wish to take over what can be read?  The old file is kept either way."_s.arg(
                             nameOf(path), report.text()),
                         boxTitle()) == Desktop::Answer::No)
        return {};
    const QString keptPath = exchangeFiles(path, newPath);
    return u"'%1' has been taken over.  The old file was kept as '%2'.\n\n%3"_s.arg(
        nameOf(path), nameOf(keptPath), report.text());
}

/// Whether the new file is in place.
bool takeOverAndTell(const KnownFile &known, const QString &path, Desktop &desktop)
{
    const auto tellFailure = [&](const QString &reason) {
        desktop.showMessage(
            u"'%1' could not be taken over and is as it was.\n\n%2"_s.arg(nameOf(path), reason), boxTitle());
    };
    try {
        const auto message = takeOver(known, path, desktop);
        if (message)
            desktop.showMessage(*message, boxTitle());
        return message.has_value();
    } catch (const OldFileError &error) {
        tellFailure(error.reason());
    } catch (const NumberedError &error) {
        tellFailure(error.description());
    }
    return false;
}

} // namespace

} // namespace obelmark

// Outside of every namespace, as the macro wants it: a library's resources are not there by themselves.
static void makeSchemasAvailable()
{
    Q_INIT_RESOURCE(old_collections);
}

namespace obelmark {

bool offerTakeOver(const QString &folder, Desktop &desktop)
{
    QList<std::pair<KnownFile, QString>> oldFiles;
    QStringList paths;
    for (const KnownFile &known : knownFiles) {
        const QString path = QFileInfo(pathInAnyCase(folder, known.name)).canonicalFilePath();
        if (path.isEmpty() || !isOldFile(path))
            continue;
        oldFiles.append({known, path});
        paths << path;
    }
    if (oldFiles.isEmpty())
        return true;
    if (!userAgrees(paths, desktop))
        return false;
    makeSchemasAvailable();
    for (const auto &[known, path] : oldFiles) {
        if (!takeOverAndTell(known, path, desktop) && known.isNeeded)
            return false;
    }
    return true;
}

} // namespace obelmark
