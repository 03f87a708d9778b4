// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/PictureFiles.h"

#include "common/SharedState.h"
#include "common/TextHelpers.h"
#include "desktop/Desktop.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView pictureSuffixes[] = {
    "bmp"_L1, "dib"_L1, "gif"_L1, "jpg"_L1, "jpeg"_L1, "wmf"_L1,  "emf"_L1,
    "ico"_L1, "cur"_L1, "png"_L1, "tif"_L1, "tiff"_L1, "webp"_L1,
};

QString stem(qint64 coinId)
{
    return u"%1"_s.arg(coinId, 8, 10, QLatin1Char('0'));
}

QStringList filesOf(const QDir &folder, qint64 coinId, const QStringList &otherNames = {})
{
    return folder.entryList(otherNames + QStringList{stem(coinId) + u".*"_s}, QDir::Files | QDir::Hidden,
                            QDir::Name);
}

bool isPictureName(const QString &file)
{
    const QString suffix = QFileInfo(file).suffix();
    return std::ranges::any_of(pictureSuffixes, [&](QLatin1StringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

/// On some file systems two names that differ in letter case are one file.
bool isSameFile(const QString &first, const QString &second)
{
    struct stat one
    {
    }, other{};
    return ::stat(QFile::encodeName(first).constData(), &one) == 0 &&
           ::stat(QFile::encodeName(second).constData(), &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

} // namespace

QString imagesFolder(const QString &appFolder)
{
    return pathInAnyCase(appFolder, u"images"_s) + u'/';
}

void makeImagesFolder(const QString &appFolder)
{
    const QString path = imagesFolder(appFolder).chopped(1);
    const QFileInfo found(path);
    if (found.isDir())
        return;
    const QString reason = found.isSymLink() && !found.exists() ? u"a link that leads nowhere"_s
                           : found.exists()                     ? u"a file, and not a folder"_s
                                                                : QString();
    if (!reason.isEmpty())
        throw NumberedError(PathFileAccess,
                            u"The folder for the pictures cannot be made: '%1' is %2."_s.arg(path, reason));
    if (::mkdir(QFile::encodeName(path).constData(), 0777) != 0)
        throw NumberedError(PathFileAccess, u"The folder for the pictures, '%1', cannot be made: %2."_s.arg(
                                                path, qt_error_string(errno)));
}

QString findPictureFile(const QString &appFolder, qint64 coinId)
{
    const QDir folder(imagesFolder(appFolder));
    const QStringList files = filesOf(folder, coinId);
    if (files.isEmpty())
        return {};
    const QString written = stem(coinId) + u".jpg"_s;
    return folder.filePath(files.contains(written) ? written : files.first());
}

QString writtenPictureFile(const QString &appFolder, qint64 coinId)
{
    return u"%1%2.jpg"_s.arg(imagesFolder(appFolder), stem(coinId));
}

void removeUnfinishedPicture(const QString &appFolder)
{
    removeUnfinishedFile(imagesFolder(appFolder) + unfinishedPicture);
}

void deleteReplacedPictures(const QString &appFolder, qint64 coinId)
{
    const QDir folder(imagesFolder(appFolder));
    const QString written = writtenPictureFile(appFolder, coinId);
    // The names are gone through anyway: with them go files that earlier versions have left unfinished.
    for (const QString &name : filesOf(folder, coinId, {u".obelmark-*.tmp"_s})) {
        const QString file = folder.filePath(name);
        if (name.startsWith(u'.'))
            removeUnfinishedFile(file);
        else if (isPictureName(name) && !isSameFile(file, written))
            QFile::remove(file);
    }
}

bool deletePicture(const QString &file)
{
    if (!QFile::remove(file))
        return false;
    try {
        flushToDisk(QFileInfo(file).path());
        return true;
    } catch (const NumberedError &) {
        return false;
    }
}

void setAsideStrayPictures(const SharedState &shared, qint64 newCoinId)
{
    const QDir folder(imagesFolder(shared.AppFolder));
    const QStringList strays = filesOf(folder, newCoinId);
    for (const QString &name : strays) {
        QString aside = folder.filePath(u"unclaimed-"_s + name);
        for (int copy = 2; QFileInfo::exists(aside); ++copy)
            aside = folder.filePath(u"unclaimed-%1-%2"_s.arg(QString::number(copy), name));
        const QString stray = folder.filePath(name);
        if (!QFile::rename(stray, aside))
            shared.desktop.showMessage(
                u"The picture file '%1' belongs to no coin and could not be set aside."_s.arg(stray));
    }
    if (!strays.isEmpty())
        flushToDisk(folder.path());
}

} // namespace obelmark
