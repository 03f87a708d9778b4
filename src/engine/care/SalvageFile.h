// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/SalvageRecord.h"
#include <QFile>
#include <QString>
#include <functional>
#include <limits>

namespace obelmark {

/// Bytes that every SQLite file begins with. SQLite takes a file of a single byte for an empty database.
inline constexpr int fileHeaderSize = 100;

/// Row ids above \a after up to and including \a upTo.
struct RowRange
{
    std::int64_t after = std::numeric_limits<std::int64_t>::min();
    std::int64_t upTo = std::numeric_limits<std::int64_t>::max();

    bool contains(std::int64_t id) const { return id > after && id <= upTo; }
};

struct SalvagedRow
{
    std::int64_t id = 0;
    std::vector<SalvagedValue> values;
    /// False: some values could not be read and are null.
    bool complete = true;
};

/// What a page of a tree belongs to.
enum class TreeKind { None, Table, Index };

/// What could not be read of a table.
struct TableLosses
{
    /// The rows of pages that are lost; a lost root is the whole range.
    std::vector<RowRange> ranges;
    /// Pages that are there and of which a row at least is not.
    std::int64_t cells = 0;

    bool none() const { return ranges.empty() && cells == 0; }
};

/// A database file read page by page, below the SQL layer, which gives up at the first page that makes no
/// sense. Everything is checked before it is believed: the file's header against the pages, row ids against
/// the range that the pages above a page leave to it, a record's header against its size. No page gives its
/// rows twice, so reading ends in time proportional to the file however its links are tangled. The format is
/// https://www.sqlite.org/fileformat2.html.
class SalvageFile
{
public:
    using RowVisitor = std::function<void(const SalvagedRow &)>;
    using PageTest = std::function<bool(const std::vector<SalvagedRow> &)>;

    /// \throws DatabaseFileNotFound; UnrecognizedFormat when no page of the file looks like one of a database
    explicit SalvageFile(const QString &path);

    QString path() const { return m_file.fileName(); }
    int userVersion() const;
    int applicationId() const;

    SalvagedEncoding encoding() const { return m_encoding; }
    /// Takes texts for written in another encoding than the file's header says. What has been read is
    /// forgotten.
    void startAnew(SalvagedEncoding encoding);

    TreeKind kindOf(std::uint32_t page);
    /// The rows of the table that begins at \a rootPage, in the order of their ids. A page whose rows do not
    /// pass \a isOurs is not one of the table.
    TableLosses readTable(std::uint32_t rootPage, const PageTest &isOurs, const RowVisitor &visitor);
    /// Whether a page of that table passes the test. It counts as not read afterwards.
    bool hasPage(std::uint32_t rootPage, const PageTest &test);
    /// The entries of the index that begins at \a rootPage, page by page; the last value is the id of the
    /// row. The visitor answers whether the page is one of the index. Answers whether every page and entry
    /// could be read.
    bool readIndex(std::uint32_t rootPage, const PageTest &visitor);
    /// The pages of table rows that no table read before has led to, because the way to them is lost. Pages
    /// that the file has marked as free are left out, and those whose visitor answers true from then on.
    void readStrayPages(const PageTest &visitor);
    /// Whether it is known which pages are free: then every other page is in use.
    bool knowsFreePages() const { return m_knowsFreePages; }

private:
    class Page;
    /// A payload's part within its cell, and where the rest begins (0: nowhere).
    struct Payload
    {
        QByteArrayView local;
        std::uint32_t overflowPage = 0;
    };

    QByteArray readPage(std::uint32_t number);
    bool claim(std::uint32_t number);
    void releaseFrom(std::size_t claim);
    Page treePage(std::uint32_t number);
    std::optional<SalvagedRow> readRow(const Page &page, int cell);
    std::vector<SalvagedRow> readLeaf(const Page &page, const RowRange &range);
    std::optional<SalvagedRow> readEntry(QByteArrayView cell);
    SalvagedRow readValues(const RecordLayout &layout, const QByteArray &record) const;
    Payload findPayload(QByteArrayView bytes, std::uint64_t size, std::uint64_t mostLocal) const;
    QByteArray readPayload(const Payload &payload, std::uint64_t size);
    void findPageSize();
    int countTreePages(std::uint32_t pageSize);
    bool keepsRoomAtEnds(std::uint32_t room);
    void findFreePages();

    QFile m_file;
    QByteArray m_header;
    std::uint32_t m_pageSize = 0;
    std::uint32_t m_usableSize = 0;
    std::uint32_t m_pageCount = 0;
    SalvagedEncoding m_encoding = SalvagedEncoding::Utf8;
    std::vector<bool> m_claimed;
    std::vector<std::uint32_t> m_claims; ///< in their order
    std::size_t m_mayBeReadAgain = 0;    ///< pages of broken payloads: there is an end to it
    std::vector<bool> m_free;
    bool m_knowsFreePages = false;
};

} // namespace obelmark
