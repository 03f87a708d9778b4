// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collections.h"

#include "CollectionGenerator.h"
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <stdexcept>
#include <sys/statfs.h>
#include <unistd.h>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

QString dataFolder()
{
    return qEnvironmentVariable("OBELMARK_BENCH_DATA", QStringLiteral(OBELMARK_BENCH_DATA));
}

QString databaseIn(const QString &folder)
{
    const QString path = dataFolder() + u'/' + folder;
    if (!QDir().mkpath(path))
        throw std::runtime_error("cannot make " + path.toStdString());
    return path + u"/coin.mdb"_s;
}

bool isNewer(const QString &path, const QString &source)
{
    return QFile::exists(path) && QFileInfo(path).lastModified() >= QFileInfo(source).lastModified();
}

QString copied(const QString &original, const QString &path)
{
    QFile::remove(path);
    // On the disk before anything is measured, or the first saves would wait for it.
    QFile copy(path);
    if (!QFile::copy(original, path) || !copy.open(QIODevice::ReadWrite) || fsync(copy.handle()) != 0)
        throw std::runtime_error("cannot write " + path.toStdString());
    return path;
}

} // namespace

std::string sizeName(qint64 coins)
{
    return coins < million ? std::to_string(coins / thousand) + " thousand"
                           : std::to_string(coins / million) + " million";
}

QString collection(qint64 coins, Letters letters)
{
    static constexpr std::array names{u"mixed", u"ascii", u"other"};
    const QString path = databaseIn(u"%1-%2"_s.arg(coins).arg(names.at(size_t(letters))));
    if (!isNewer(path, QStringLiteral(OBELMARK_DATA_SOURCES "/coin.sql"))) {
        std::fprintf(stderr, "Making %s\n", qPrintable(path));
        generateCollection(path, coins, letters);
    }
    return path;
}

QString twinOf(const QString &original)
{
    const QString path = databaseIn(QFileInfo(original).dir().dirName() + u"-twin"_s);
    return isNewer(path, original) ? path : copied(original, path);
}

QString scratchCopy(const QString &original, const QString &name)
{
    return copied(original, databaseIn(name));
}

void requireRealDisk()
{
    struct statfs about;
    constexpr auto tmpfs = 0x01021994;
    if (statfs(QFile::encodeName(QFileInfo(collection(thousand)).path()).constData(), &about) != 0 ||
        about.f_type == tmpfs)
        throw std::runtime_error("the collections are not on a disk");
}

} // namespace obelmark::bench
