// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/OldFileReader.h"

#include "engine/language/NameIndex.h"
#include "old_collections/OldValues.h"
#include <QFile>
#include <QtEndian>
#include <memory>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// The marks on the offset of a row.
constexpr int isNotHere = 0x8000; ///< deleted, or to be reached only through a pointer elsewhere
constexpr int isPointer = 0x4000; ///< what lies here is the place of the row, which has grown out of its page
constexpr int offsetBits = 0x1fff;

using File = std::unique_ptr<MdbHandle, decltype(&mdb_close)>;
using Table = std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)>;

/// Whether the first page, which opening has left decoded in the buffer, holds a password.
bool hasPassword(const MdbHandle &file)
{
    constexpr qsizetype passwordAt = 0x42;
    constexpr qsizetype creationDateAt = 0x72;
    const bool isThirdVersion = file.f->jet_version == MDB_VER_JET3;
    uchar mask[4] = {};
    if (!isThirdVersion) { // hidden by the day on which the file was made
        const auto day = qFromLittleEndian<double>(file.pg_buf + creationDateAt);
        if (day >= 0 && day <= 1e6)
            qToLittleEndian(qint32(day), mask);
    }
    for (int i = 0; i < (isThirdVersion ? 20 : 40); ++i) {
        if ((file.pg_buf[passwordAt + i] ^ mask[i % 4]) != 0)
            return true;
    }
    // The versions with another encryption than the simple one of old.
    return file.f->jet_version >= MDB_VER_ACCDB_2007 && file.f->db_key != 0;
}

class TableReader
{
public:
    /// \a size is that of the file in bytes.
    TableReader(MdbHandle &file, qint64 size, MdbTableDef &table, OldFileVisitor &visitor)
        : m_file(file), m_size(size), m_table(table), m_visitor(visitor), m_fields(table.num_cols)
    {
    }

    void read()
    {
        const OldTable description = describe();
        m_visitor.beginTable(description);
        while (const int page = mdb_read_next_dpg(&m_table)) {
            const int rows = mdb_get_int16(m_file.pg_buf, m_file.fmt->row_count_offset);
            for (int row = 0; row < rows; ++row)
                readSlot(page, row);
        }
    }

    OldTable describe()
    {
        OldTable description{QString::fromUtf8(m_table.name), m_table.num_rows, 0, {}};
        if (mdb_read_pg(&m_file, m_table.entry->table_pg) > 0)
            description.lastCounter = mdb_get_int32(m_file.pg_buf, m_file.fmt->tab_num_rows_offset + 4);
        for (guint i = 0; i < m_table.num_cols; ++i)
            description.columns << QString::fromUtf8(column(i).name);
        return description;
    }

private:
    const MdbColumn &column(guint index) const
    {
        return *static_cast<const MdbColumn *>(g_ptr_array_index(m_table.columns, index));
    }

    void readSlot(int page, int row)
    {
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(&m_file, row, &start, &size) != 0) {
            m_visitor.unreadableRow();
        } else if (start & isNotHere) {
            return;
        } else if (start & isPointer) {
            readThroughPointer(page, start & offsetBits, size);
        } else {
            readRow(page, start & offsetBits, size);
        }
    }

    void readThroughPointer(int page, int start, size_t size)
    {
        const auto target = size < 4 ? 0 : qFromLittleEndian<quint32>(m_file.pg_buf + start);
        int rowStart = 0;
        size_t rowSize = 0;
        if (target == 0 || mdb_read_pg(&m_file, target >> 8) <= 0 ||
            mdb_find_row(&m_file, int(target & 0xff), &rowStart, &rowSize) != 0)
            m_visitor.unreadableRow();
        else if (rowStart & isNotHere) // without that mark its own page brings it
            readRow(int(target >> 8), rowStart & offsetBits, rowSize);
        mdb_read_pg(&m_file, ulong(page));
    }

    void readRow(int page, int start, size_t size)
    {
        const bool isThere = size > 0 && endInFile(m_file, page, start, qint64(size)) <= m_size;
        const int found = !isThere ? -1 : mdb_crack_row(&m_table, start, size, m_fields.data());
        if (found != int(m_table.num_cols)) {
            m_visitor.unreadableRow();
            return;
        }
        // A row is as it was when it was last written: columns that came into the table after that it has
        // not.
        const int columnsOfRow =
            IS_JET3((&m_file)) ? mdb_get_byte(m_file.pg_buf, start) : mdb_get_int16(m_file.pg_buf, start);
        OldRow row;
        row.values.resize(m_table.num_cols);
        for (MdbField &field : m_fields) {
            const MdbColumn &described = column(guint(field.colnum));
            if (described.row_col_num >= columnsOfRow)
                field.is_null = 1;
            if (const auto value = oldValue(m_file, m_size, described, field))
                row.values[size_t(field.colnum)] = *value;
            else
                row.unreadable << field.colnum;
        }
        m_visitor.row(row);
    }

    MdbHandle &m_file;
    const qint64 m_size;
    MdbTableDef &m_table;
    OldFileVisitor &m_visitor;
    std::vector<MdbField> m_fields;
};

File openBytes(uchar *bytes, qint64 size)
{
    return {bytes ? mdb_open_buffer(bytes, size_t(size), MDB_NOFLAGS) : nullptr, &mdb_close};
}

Table open(MdbCatalogEntry &entry)
{
    Table table(mdb_read_table(&entry), &mdb_free_tabledef);
    if (table && !mdb_read_columns(table.get()))
        table.reset();
    return table;
}

} // namespace

bool readOldFile(const QString &path, const QString &wanted, OldFileVisitor &visitor)
{
    QFile source(path);
    uchar *bytes = source.open(QIODevice::ReadOnly) ? source.map(0, source.size()) : nullptr;
    File file = openBytes(bytes, source.size());
    if (!file || source.size() < file->fmt->pg_size)
        throw OldFileError(u"It cannot be opened or is damaged."_s);
    // What is missing of the last page is read as zeros; what reaches into them counts as unreadable.
    const qint64 pageSize = file->fmt->pg_size;
    const qint64 allPages = (source.size() + pageSize - 1) / pageSize * pageSize;
    if (allPages > source.size())
        file = openBytes(bytes, allPages);
    if (hasPassword(*file))
        throw OldFileError(
            u"It is protected by a password.  Remove the password with the program that has set it, "
            "then try again."_s);
    const GPtrArray *catalogue = mdb_read_catalog(file.get(), MDB_TABLE);
    if (!catalogue)
        throw OldFileError(u"It is damaged: its list of tables cannot be read."_s);

    std::vector<MdbCatalogEntry *> others;
    for (guint i = 0; i < catalogue->len; ++i) {
        auto *entry = static_cast<MdbCatalogEntry *>(g_ptr_array_index(catalogue, i));
        if (!mdb_is_user_table(entry))
            continue;
        if (!sameName(wanted, QString::fromUtf8(entry->object_name)))
            others.push_back(entry);
        else if (const Table table = open(*entry))
            TableReader(*file, source.size(), *table, visitor).read();
    }
    for (MdbCatalogEntry *entry : others) {
        const Table table = open(*entry);
        visitor.beginTable({QString::fromUtf8(entry->object_name), table ? table->num_rows : 0, 0, {}});
    }
    return allPages == source.size();
}

} // namespace obelmark
