#pragma once

#include "desktop/Desktop.h"

namespace obelmark {

/// A mounted volume as the system knows it.
struct Volume
{
    Drive drive;
    QString fileSystem;    ///< its type: "ext4", "vfat", "proc"
    quint64 device = 0;    ///< the number that the kernel knows it by, the same for all its mounts
    qint64 bytesTotal = 0; ///< 0 for file systems that store nothing
    bool isFolder = true;  ///< single files can be mounted too, in containers
    bool isWritable = true;
};

/// The volumes that a user would call drives and can write to, removable ones first. One that is mounted in
/// several places stands under the shortest path.
QList<Drive> drivesAmong(QList<Volume> volumes);

/// Those that are mounted now.
QList<Drive> mountedDrives();

} // namespace obelmark
