#include "desktop/qt/DriveList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Folders of the system in which nothing is mounted that a user knows of, except sticks in /run/media.
bool isOfTheSystem(const QString &root)
{
    if (root.startsWith("/run/media/"_L1))
        return false;
    for (const auto folder : {"/dev"_L1, "/proc"_L1, "/run"_L1, "/sys"_L1, "/boot"_L1, "/snap"_L1}) {
        if (root == folder || root.startsWith(folder + u'/'))
            return true;
    }
    return false;
}

/// The kernel knows it of whole disks, /sys/class/block/sdb, and of their parts, .../sdb/sdb1/...
bool isRemovable(const QString &device, const QString &root)
{
    if (root.startsWith("/media/"_L1) || root.startsWith("/run/media/"_L1))
        return true;
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

} // namespace

QList<Drive> mountedDrives()
{
    QList<Drive> drives;
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // Single files can be mounted too, in containers.
        if (!volume.isValid() || !volume.isReady() || volume.bytesTotal() <= 0 || isOfTheSystem(root) ||
            !QFileInfo(root).isDir())
            continue;
        const QString name = !volume.name().isEmpty() ? volume.name() : QFileInfo(root).fileName();
        drives.append(
            {name, root, volume.bytesAvailable(), isRemovable(QString::fromUtf8(volume.device()), root)});
    }
    std::ranges::stable_sort(drives, [](const Drive &a, const Drive &b) {
        return a.removable != b.removable ? a.removable : a.root < b.root;
    });
    return drives;
}

} // namespace obelmark
