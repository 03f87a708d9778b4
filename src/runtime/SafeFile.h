// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace obelmark {

/// A file that is complete or absent: written under a temporary name beside its target, flushed to the disk
/// and renamed over the target by commit(). Destroyed without commit() it leaves the target as it was.
///
/// A target that exists keeps its permission bits and, where the system allows it, its owner and group; one
/// that is a symbolic link stays a link, and the file it leads to is replaced.
class SafeFile
{
public:
    /// A temporary name that is given is that of at most one file at a time: what stands there is replaced.
    /// \throws PathNotFound, PermissionDenied, DiskFull or PathFileAccess, the description naming the file
    /// \a keepTimes: a file that is replaced hands on its times of access and change.
    explicit SafeFile(const QString &path, const QString &temporaryName = {}, bool keepTimes = false);
    ~SafeFile();
    SafeFile(const SafeFile &) = delete;
    SafeFile &operator=(const SafeFile &) = delete;

    /// Small pieces are collected, so a failure may show at a later write() or at commit().
    /// \throws DiskFull or PathFileAccess, the description naming the file and the reason. After that the
    /// file cannot be committed any more.
    void write(const QByteArray &bytes);
    /// Flushes the file to the disk under its temporary name. To be called once; commit() does it otherwise.
    /// \throws as write()
    void finish();
    /// Puts the file in place and flushes the folder to the disk. To be called once. \throws as write()
    void commit();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// Removes a file that a run of the program which was cut off (killed, a power cut) has not finished. What is
/// younger than an hour stays: it may be somebody's work.
void removeUnfinishedFile(const QString &path);

/// Removes what SafeFile and others have left unfinished in a folder: ".obelmark-*.tmp". Looks at all names
/// in the folder.
void removeUnfinishedFiles(const QString &folder);

/// Flushes a finished file's bytes, or a folder's entries, to the disk.
/// \throws as SafeFile::SafeFile()
void flushToDisk(const QString &path);

} // namespace obelmark
