// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/DriveList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>
#include <algorithm>
#include <sys/stat.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

bool isIn(const QString &root, QLatin1StringView folder)
{
    return root == folder || root.startsWith(folder + u'/');
}

/// Where sticks and cards are mounted that the user has put in.
bool isForRemovable(const QString &root)
{
    return isIn(root, "/media"_L1) || isIn(root, "/run/media"_L1);
}

/// Folders in which nothing is mounted that a user would look for, or find again after the next start.
bool isOfTheSystem(const QString &root)
{
    static constexpr QLatin1StringView folders[] = {"/dev"_L1,  "/proc"_L1, "/run"_L1,    "/sys"_L1,
                                                    "/boot"_L1, "/snap"_L1, "/var/lib"_L1};
    return root == "/tmp"_L1 || (!isForRemovable(root) && std::ranges::any_of(folders, [&](auto folder) {
               return isIn(root, folder);
           }));
}

/// File systems in which the kernel or a program shows something that is no file.
bool isPseudo(const QString &fileSystem)
{
    static constexpr QLatin1StringView types[] = {
        "autofs"_L1,   "binfmt_misc"_L1, "bpf"_L1,        "cgroup"_L1,         "cgroup2"_L1,
        "configfs"_L1, "debugfs"_L1,     "devpts"_L1,     "devtmpfs"_L1,       "efivarfs"_L1,
        "fusectl"_L1,  "hugetlbfs"_L1,   "mqueue"_L1,     "nsfs"_L1,           "proc"_L1,
        "pstore"_L1,   "ramfs"_L1,       "securityfs"_L1, "squashfs"_L1,       "sysfs"_L1,
        "tracefs"_L1,  "fuse.portal"_L1, "fuse.lxcfs"_L1, "fuse.gvfsd-fuse"_L1};
    return std::ranges::find(types, fileSystem) != std::end(types);
}

/// The kernel knows it of whole disks, /sys/class/block/sdb, and of their parts, .../sdb/sdb1/...
bool isRemovable(const QString &device)
{
    const QString node = QFileInfo(u"/sys/class/block/"_s + QFileInfo(device).fileName()).canonicalFilePath();
    if (node.isEmpty())
        return false;
    for (const QString &folder : {node, QFileInfo(node).path()}) {
        QFile flag(folder + u"/removable"_s);
        if (flag.open(QIODevice::ReadOnly) && flag.readAll().trimmed() == "1")
            return true;
    }
    return false;
}

struct stat statusOf(const QString &path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return status;
}

Volume volumeOf(const QStorageInfo &storage)
{
    const QString root = storage.rootPath();
    const struct stat status = statusOf(root);
    const QFileInfo home(QDir::homePath());
    const bool hasHome =
        home.isDir() && home.isWritable() && statusOf(home.filePath()).st_dev == status.st_dev;
    return {.drive = {.name = !storage.name().isEmpty() ? storage.name() : QFileInfo(root).fileName(),
                      .root = root,
                      .freeBytes = storage.bytesAvailable(),
                      .removable = isForRemovable(root) || isRemovable(QString::fromUtf8(storage.device())),
                      .isWritable = QFileInfo(root).isWritable()},
            .fileSystem = QString::fromUtf8(storage.fileSystemType()),
            .device = status.st_dev,
            .bytesTotal = storage.isReady() ? storage.bytesTotal() : 0,
            .isFolder = S_ISDIR(status.st_mode),
            .isReadOnly = storage.isReadOnly(),
            .home = hasHome ? home.filePath() : QString()};
}

} // namespace

QList<Drive> drivesAmong(QList<Volume> volumes)
{
    std::ranges::stable_sort(volumes, {}, [](const Volume &volume) { return volume.drive.root.size(); });
    QList<Drive> drives;
    QSet<quint64> devices;
    for (const Volume &volume : volumes) {
        if (volume.bytesTotal <= 0 || !volume.isFolder || volume.isReadOnly || isPseudo(volume.fileSystem) ||
            isOfTheSystem(volume.drive.root) || devices.contains(volume.device))
            continue;
        devices.insert(volume.device);
        Drive drive = volume.drive;
        if (!drive.isWritable && !volume.home.isEmpty()) {
            drive.name = u"Home"_s;
            drive.root = volume.home;
            drive.isWritable = drive.isHome = true;
        }
        if (drive.isWritable || drive.removable)
            drives.append(drive);
    }
    std::ranges::sort(drives, [](const Drive &a, const Drive &b) {
        return a.removable != b.removable ? a.removable : a.root < b.root;
    });
    return drives;
}

QList<Drive> mountedDrives()
{
    QList<Volume> volumes;
    for (const QStorageInfo &storage : QStorageInfo::mountedVolumes())
        volumes.append(volumeOf(storage));
    return drivesAmong(volumes);
}

} // namespace obelmark
