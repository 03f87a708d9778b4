// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/UnsyncedVfs.h"

#include <QFile>
#include <algorithm>
#include <new>
#include <set>

namespace obelmark {

namespace {

constexpr qint64 sectorSize = 512;

void apply(QByteArray &content, qint64 offset, const QByteArray &bytes)
{
    if (content.size() < offset + bytes.size())
        content.append(offset + bytes.size() - content.size(), '\0');
    std::copy(bytes.begin(), bytes.end(), content.begin() + offset);
}

void truncate(QByteArray &content, qint64 size)
{
    content.truncate(size);
}

} // namespace

/// The memory of the layer below lies behind it.
struct UnsyncedVfs::OpenFile : sqlite3_file
{
    static OpenFile *of(sqlite3_file *file) { return static_cast<OpenFile *>(file); }
    static sqlite3_file *below(sqlite3_file *file) { return reinterpret_cast<sqlite3_file *>(of(file) + 1); }

    static int close(sqlite3_file *file);
    static int write(sqlite3_file *file, const void *bytes, int size, sqlite3_int64 offset);
    static int truncate(sqlite3_file *file, sqlite3_int64 size);
    static int sync(sqlite3_file *file, int flags);
    static const sqlite3_io_methods *methods();
    template<auto Method, class... Arguments>
    static int passOn(sqlite3_file *file, Arguments... arguments)
    {
        return (below(file)->pMethods->*Method)(below(file), arguments...);
    }

    UnsyncedVfs *vfs = nullptr;
    std::shared_ptr<Content> content; ///< none for temporary files, which need not survive
    bool flushesFolder = false;
};

/// Counts a change. Whether the power goes in its middle.
bool UnsyncedVfs::isCutNow()
{
    ++m_changes;
    m_powerOff = m_changes == m_cutAt;
    return m_powerOff;
}

int UnsyncedVfs::OpenFile::close(sqlite3_file *file)
{
    const int result = below(file)->pMethods->xClose(below(file));
    of(file)->~OpenFile();
    return result;
}

int UnsyncedVfs::OpenFile::write(sqlite3_file *file, const void *bytes, int size, sqlite3_int64 offset)
{
    UnsyncedVfs *vfs = of(file)->vfs;
    if (of(file)->content) {
        if (vfs->m_powerOff)
            return SQLITE_IOERR_WRITE;
        if (vfs->m_freeSpace) {
            sqlite3_int64 oldSize = 0;
            below(file)->pMethods->xFileSize(below(file), &oldSize);
            const qint64 growth = std::max<qint64>(0, offset + size - oldSize);
            if (growth > *vfs->m_freeSpace)
                return SQLITE_FULL;
            *vfs->m_freeSpace -= growth;
        }
        of(file)->content->unflushed.push_back({offset, QByteArray(static_cast<const char *>(bytes), size)});
        if (vfs->isCutNow())
            return SQLITE_IOERR_WRITE;
    }
    return below(file)->pMethods->xWrite(below(file), bytes, size, offset);
}

int UnsyncedVfs::OpenFile::truncate(sqlite3_file *file, sqlite3_int64 size)
{
    if (of(file)->content) {
        if (of(file)->vfs->m_powerOff)
            return SQLITE_IOERR_TRUNCATE;
        of(file)->content->unflushed.push_back({size, {}});
        if (of(file)->vfs->isCutNow())
            return SQLITE_IOERR_TRUNCATE;
    }
    return below(file)->pMethods->xTruncate(below(file), size);
}

int UnsyncedVfs::OpenFile::sync(sqlite3_file *file, int)
{
    OpenFile *open = of(file);
    if (!open->content)
        return SQLITE_OK;
    if (open->vfs->m_powerOff || open->vfs->isCutNow())
        return SQLITE_IOERR_FSYNC;
    for (const Change &change : std::exchange(open->content->unflushed, {})) {
        if (change.bytes)
            apply(open->content->flushed, change.offset, *change.bytes);
        else
            obelmark::truncate(open->content->flushed, change.offset);
    }
    if (std::exchange(open->flushesFolder, false))
        open->vfs->flushFolder();
    return SQLITE_OK; // the disk itself need not be troubled
}

const sqlite3_io_methods *UnsyncedVfs::OpenFile::methods()
{
    static const sqlite3_io_methods result = [] {
        sqlite3_io_methods methods{};
        methods.iVersion = 1;
        methods.xClose = &close;
        methods.xRead = &passOn<&sqlite3_io_methods::xRead>;
        methods.xWrite = &write;
        methods.xTruncate = &truncate;
        methods.xSync = &sync;
        methods.xFileSize = &passOn<&sqlite3_io_methods::xFileSize>;
        methods.xLock = &passOn<&sqlite3_io_methods::xLock>;
        methods.xUnlock = &passOn<&sqlite3_io_methods::xUnlock>;
        methods.xCheckReservedLock = &passOn<&sqlite3_io_methods::xCheckReservedLock>;
        methods.xFileControl = &passOn<&sqlite3_io_methods::xFileControl>;
        methods.xSectorSize = &passOn<&sqlite3_io_methods::xSectorSize>;
        methods.xDeviceCharacteristics = &passOn<&sqlite3_io_methods::xDeviceCharacteristics>;
        return methods;
    }();
    return &result;
}

UnsyncedVfs::UnsyncedVfs() : m_below(sqlite3_vfs_find(nullptr)), m_vfs(*m_below)
{
    m_vfs.zName = "unsynced";
    m_vfs.szOsFile = int(sizeof(OpenFile)) + m_below->szOsFile;
    m_vfs.pAppData = this;
    m_vfs.xOpen = &open;
    m_vfs.xDelete = &remove;
    sqlite3_vfs_register(&m_vfs, 1);
}

UnsyncedVfs::~UnsyncedVfs()
{
    sqlite3_vfs_unregister(&m_vfs);
}

int UnsyncedVfs::open(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    auto *self = static_cast<UnsyncedVfs *>(vfs->pAppData);
    const bool isNew = name && !QFile::exists(QString::fromUtf8(name));
    file->pMethods = nullptr;
    if (isNew && self->m_powerOff)
        return SQLITE_CANTOPEN;
    auto *opened = new (file) OpenFile;
    if (const int result =
            self->m_below->xOpen(self->m_below, name, OpenFile::below(file), flags, outFlags)) {
        opened->~OpenFile();
        return result;
    }
    opened->pMethods = OpenFile::methods();
    opened->vfs = self;
    if (!name || !(flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)))
        return SQLITE_OK;
    std::shared_ptr<Content> &content = self->m_folder[name];
    if (isNew) {
        content = std::make_shared<Content>();
        self->m_folderChanges.emplace_back(name, content);
        // The layer below flushes the folder together with a new journal.
        opened->flushesFolder = flags & SQLITE_OPEN_MAIN_JOURNAL;
    } else if (!content) {
        QFile existing(QString::fromUtf8(name));
        if (!existing.open(QIODevice::ReadOnly))
            qFatal("%s cannot be read", name);
        content = std::make_shared<Content>(Content{existing.readAll(), {}});
        self->m_flushedFolder[name] = content;
    }
    opened->content = content;
    return SQLITE_OK;
}

int UnsyncedVfs::remove(sqlite3_vfs *vfs, const char *name, int flushFolder)
{
    auto *self = static_cast<UnsyncedVfs *>(vfs->pAppData);
    if (self->m_powerOff)
        return SQLITE_IOERR_DELETE;
    if (self->m_folder.erase(name)) {
        self->m_folderChanges.emplace_back(name, nullptr);
        if (self->isCutNow())
            return SQLITE_IOERR_DELETE;
    }
    const int result = self->m_below->xDelete(self->m_below, name, 0);
    if (result == SQLITE_OK && flushFolder)
        self->flushFolder();
    return result;
}

void UnsyncedVfs::flushFolder()
{
    for (const auto &[name, content] : std::exchange(m_folderChanges, {}))
        m_flushedFolder[name] = content;
}

QByteArray UnsyncedVfs::survivor(const Content &content, std::mt19937 &chance)
{
    // Anything from a disk that had written nothing yet to one that had written all.
    std::bernoulli_distribution survives(std::uniform_int_distribution(0, 4)(chance) / 4.0);
    QByteArray result = content.flushed;
    for (const Change &change : content.unflushed) {
        if (!change.bytes) {
            if (survives(chance))
                truncate(result, change.offset);
            continue;
        }
        for (qint64 from = 0; from < change.bytes->size();) {
            const qint64 inSector = (change.offset + from) % sectorSize;
            const QByteArray sector = change.bytes->mid(from, sectorSize - inSector);
            if (survives(chance))
                apply(result, change.offset + from, sector);
            from += sector.size();
        }
    }
    return result;
}

void UnsyncedVfs::restart(unsigned seed)
{
    std::mt19937 chance(seed);
    std::set<std::string> names;
    for (const auto &[name, content] : m_folder)
        names.insert(name);
    const auto surviving = std::uniform_int_distribution<std::size_t>(0, m_folderChanges.size())(chance);
    for (std::size_t i = 0; i < m_folderChanges.size(); ++i) {
        names.insert(m_folderChanges[i].first);
        if (i < surviving)
            m_flushedFolder[m_folderChanges[i].first] = m_folderChanges[i].second;
    }
    for (const auto &[name, content] : m_flushedFolder)
        names.insert(name);
    for (const std::string &name : names) {
        QFile file(QString::fromStdString(name));
        const auto entry = m_flushedFolder.find(name);
        if (entry == m_flushedFolder.end() || !entry->second)
            file.remove();
        else if (!file.open(QIODevice::WriteOnly) || file.write(survivor(*entry->second, chance)) < 0)
            qFatal("%s cannot be written", name.c_str());
    }
    m_folder.clear();
    m_flushedFolder.clear();
    m_folderChanges.clear();
    m_powerOff = false;
    m_cutAt = 0;
    m_changes = 0;
}

} // namespace obelmark
