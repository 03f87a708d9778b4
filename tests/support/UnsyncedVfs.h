// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace obelmark {

/// A disk that loses its cache when the power is cut: an SQLite file layer over the default one, itself the
/// default for as long as it lives. Programs see every change at once; what survives a cut is only what was
/// flushed, and by chance parts of the rest: of each write some sectors, of each shortening all or nothing,
/// of the folder's changes since it was last flushed (files made and deleted) the first few.
///
/// No database may be open when it is made or destroyed.
class UnsyncedVfs
{
public:
    UnsyncedVfs();
    ~UnsyncedVfs();
    UnsyncedVfs(const UnsyncedVfs &) = delete;
    UnsyncedVfs &operator=(const UnsyncedVfs &) = delete;

    /// Changes seen: writes, shortenings, flushes, deletions.
    int changeCount() const { return m_changes; }
    /// The power goes in the middle of that change, counted from 1 as changeCount() does; from then on every
    /// change fails.
    void cutPowerAt(int change) { m_cutAt = change; }
    /// With every database closed: leaves in the files what has survived. The seed decides what that is.
    void restart(unsigned seed);

    /// Lets files grow by so many bytes in all before the disk is full; nothing: without limit.
    void setFreeSpace(std::optional<qint64> bytes) { m_freeSpace = bytes; }

private:
    /// A write at an offset or, without bytes, a shortening to it.
    struct Change
    {
        qint64 offset;
        std::optional<QByteArray> bytes;
    };
    /// A file's content apart from its name.
    struct Content
    {
        QByteArray flushed;
        std::vector<Change> unflushed;
    };
    using Folder = std::map<std::string, std::shared_ptr<Content>>;
    struct OpenFile;

    static int open(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags, int *outFlags);
    static int remove(sqlite3_vfs *vfs, const char *name, int flushFolder);
    bool isCutNow();
    void flushFolder();
    static QByteArray survivor(const Content &content, std::mt19937 &chance);

    sqlite3_vfs *m_below; ///< the layer that does the work
    sqlite3_vfs m_vfs;
    int m_changes = 0;
    int m_cutAt = 0;
    bool m_powerOff = false;
    std::optional<qint64> m_freeSpace;
    Folder m_folder;
    Folder m_flushedFolder;
    std::vector<std::pair<std::string, std::shared_ptr<Content>>> m_folderChanges;
};

} // namespace obelmark
