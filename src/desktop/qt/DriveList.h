// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

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
    bool isReadOnly = false;
    QString home = {}; ///< the user's home folder if it lies there and the user can write into it
};

/// The volumes that a user would call drives, removable ones first. One that is mounted in several places
/// stands under the shortest path. In place of one whose root folder the user cannot write to stands the home
/// folder on it, and without that none, unless it is removable: what has been put in is looked for.
QList<Drive> drivesAmong(QList<Volume> volumes);

/// Those that are mounted now.
QList<Drive> mountedDrives();

} // namespace obelmark
