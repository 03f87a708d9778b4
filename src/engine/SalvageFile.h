#pragma once

#include "engine/SalvageRecord.h"
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

/// What could not be read of a table.
struct TableLosses
{
    /// The rows of pages that are lost; a lost root is the whole range.
    std::vector<RowRange> ranges;
    /// Rows in pages that are there, with a beginning that is not.
    std::int64_t cells = 0;

    bool none() const { return ranges.empty() && cells == 0; }
};

/// A database file read page by page, below the SQL layer, which gives up at the first page that makes no
/// sense. Everything is checked before it is believed: row ids against the range that the pages above a page
/// leave to it, a record's header against its size. No page is read for two purposes, so reading ends in time
/// proportional to the file however its links are tangled. The format is
/// https://www.sqlite.org/fileformat2.html.
class SalvageFile
{
public:
    using RowVisitor = std::function<void(const SalvagedRow &)>;

    /// \throws DatabaseFileNotFound; UnrecognizedFormat when the file does not begin like a database
    explicit SalvageFile(const QString &path);

    QString path() const { return m_file.fileName(); }
    int userVersion() const;
    int applicationId() const;

    /// The rows of the table that begins at \a rootPage, in the order of their ids. Rows of more than
    /// \a columnCount columns are none.
    TableLosses readTable(std::uint32_t rootPage, int columnCount, const RowVisitor &visitor);
    /// The row ids in the index that begins at \a rootPage, as far as it can be read.
    void readIndex(std::uint32_t rootPage, const std::function<void(std::int64_t)> &visitor);
    /// The pages of table rows that no table read before has led to, because the way to them is lost. Pages
    /// that the file has marked as free are left out.
    void readStrayPages(const std::function<void(const std::vector<SalvagedRow> &)> &visitor);

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
    Page treePage(std::uint32_t number);
    std::optional<SalvagedRow> readRow(const Page &page, int cell, const RowRange &range, int columnCount);
    std::optional<std::int64_t> readIndexedId(QByteArrayView cell);
    Payload findPayload(QByteArrayView bytes, std::uint64_t size, std::uint64_t mostLocal) const;
    QByteArray readPayload(const Payload &payload, std::uint64_t size);
    void claimFreePages();

    QFile m_file;
    QByteArray m_header;
    std::uint32_t m_pageSize = 0;
    std::uint32_t m_usableSize = 0;
    std::uint32_t m_pageCount = 0;
    SalvagedEncoding m_encoding = SalvagedEncoding::Utf8;
    std::vector<bool> m_claimed;
};

} // namespace obelmark
