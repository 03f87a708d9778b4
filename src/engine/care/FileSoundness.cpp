// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/FileSoundness.h"

#include "engine/care/SalvageFile.h"
#include "engine/language/Schema.h"
#include <SQLiteCpp/SQLiteCpp.h>
#include <limits>
#include <sqlite3.h>

namespace obelmark {

namespace {

// Places in the header (https://www.sqlite.org/fileformat2.html, section 1.3).
enum HeaderField {
    WriteVersion = 18,
    ChangeCounter = 24,
    PageCount = 28,
    FirstFreePage = 32,
    FreePageCount = 36,
    LargestRoot = 52,
    FreesStepwise = 64,
    CountIsOf = 92
};
constexpr char highestVersion = 2;

class OpenFile
{
public:
    explicit OpenFile(SQLite::Database &connection)
    {
        connection.check(
            sqlite3_file_control(connection.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &m_file));
        connection.check(m_file->pMethods->xFileSize(m_file, &m_size));
    }
    qint64 size() const { return m_size; }
    QByteArray read(qint64 at, qsizetype size) const
    {
        QByteArray bytes(size, '\0');
        if (m_file->pMethods->xRead(m_file, bytes.data(), int(size), at) != SQLITE_OK)
            bytes.fill('\0');
        return bytes;
    }

private:
    sqlite3_file *m_file = nullptr;
    sqlite3_int64 m_size = 0;
};

quint32 number(const QByteArray &bytes, qsizetype at)
{
    return quint32(readBigEndian(QByteArrayView(bytes).sliced(at, 4)));
}

/// Whether the chain of free pages is as long as the header says and stays within the file.
bool hasSoundFreePages(const OpenFile &file, const QByteArray &header, quint32 pageCount, int pageSize)
{
    quint32 left = number(header, FreePageCount);
    quint32 trunk = number(header, FirstFreePage);
    while (trunk != 0 && left > 0 && trunk <= pageCount) {
        const QByteArray page = file.read(qint64(trunk - 1) * pageSize, pageSize);
        const quint32 count = number(page, 4);
        if (count > quint32(pageSize) / 4 - 2 || count + 1 > left)
            return false;
        for (quint32 i = 0; i < count; ++i) {
            const quint32 leaf = number(page, 8 + 4 * qsizetype(i));
            if (leaf < 2 || leaf > pageCount)
                return false;
        }
        left -= count + 1;
        trunk = number(page, 0);
    }
    return trunk == 0 && left == 0;
}

bool hasSoundHeader(SQLite::Database &connection)
{
    const OpenFile file(connection);
    const int pageSize = connection.execAndGet("pragma page_size").getInt();
    const auto pageCount = quint32(file.size() / pageSize);
    const QByteArray header = file.read(0, fileHeaderSize);
    // A count written by a library too old to keep it up to date is passed over, as the library does.
    if (number(header, ChangeCounter) == number(header, CountIsOf) && number(header, PageCount) != pageCount)
        return false;
    // The one has a meaning only with the other.
    if (number(header, FreesStepwise) != 0 && number(header, LargestRoot) == 0)
        return false;
    // With that field set, the second page would not be a table's.
    if (number(header, LargestRoot) != 0 &&
        connection.execAndGet("select exists(select 1 from sqlite_schema where rootpage = 2)").getInt())
        return false;
    return hasSoundFreePages(file, header, pageCount, pageSize);
}

bool hasKeysBeyondCounter(SQLite::Database &connection, const TableSchema &table)
{
    const std::string key = quoted(table.keyName());
    SQLite::Statement range(connection, "select (select max(" + key + ") from " + quoted(table.name()) +
                                            "), (select min(" + key + ") from " + quoted(table.name()) + ")");
    range.executeStep();
    using Counter = std::numeric_limits<qint32>;
    return range.getColumn(0).getInt64() > Counter::max() || range.getColumn(1).getInt64() < Counter::min();
}

} // namespace

void requireSound(SQLite::Database &connection, const Schema &schema)
{
    bool isSound = hasSoundHeader(connection);
    for (const auto &table : schema.tables())
        isSound = isSound && !(table->keyColumn() >= 0 && hasKeysBeyondCounter(connection, *table));
    if (!isSound)
        throw SQLite::Exception("database disk image is malformed", SQLITE_CORRUPT);
}

bool hasImpossibleVersion(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && file.seek(WriteVersion) &&
           file.read(1) > QByteArray(1, highestVersion);
}

} // namespace obelmark
