#include "engine/SalvageFile.h"

#include "engine/EngineError.h"
#include <QFileInfo>
#include <algorithm>
#include <bit>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int leafHeaderSize = 8;
constexpr int innerHeaderSize = 12;
constexpr QByteArrayView magic("SQLite format 3\0", 16);

enum PageType : std::uint8_t {
    Lost = 0,
    IndexInterior = 2,
    TableInterior = 5,
    IndexLeaf = 10,
    TableLeaf = 13
};

std::uint32_t number32(QByteArrayView bytes, qsizetype at)
{
    return std::uint32_t(readBigEndian(bytes.sliced(at, 4)));
}

} // namespace

/// A page of a tree of rows or index entries; the last page of a file cut short lacks its end.
class SalvageFile::Page
{
public:
    Page() = default;
    Page(const QByteArray &bytes, std::uint32_t usableSize, std::uint32_t number)
        : m_bytes(bytes),
          m_usable(QByteArrayView(m_bytes).first(std::min(m_bytes.size(), qsizetype(usableSize)))),
          m_header(number == 1 ? fileHeaderSize : 0)
    {
        if (m_usable.size() < m_header + innerHeaderSize)
            return;
        const auto type = std::uint8_t(m_usable[m_header]);
        const bool interior = type == IndexInterior || type == TableInterior;
        if (!interior && type != IndexLeaf && type != TableLeaf)
            return;
        m_cells = m_header + (interior ? innerHeaderSize : leafHeaderSize);
        const auto cellCount = int(readBigEndian(m_usable.sliced(m_header + 3, 2)));
        if (m_cells + 2 * cellCount > m_usable.size())
            return;
        m_cellCount = cellCount;
        m_type = PageType(type);
    }

    PageType type() const { return m_type; }
    int cellCount() const { return m_cellCount; }
    std::uint32_t rightChild() const { return number32(m_usable, m_header + 8); }
    /// From the cell's first byte to the end of the page; empty when the cell would not be in the page.
    QByteArrayView cell(int index) const
    {
        const auto at = qsizetype(readBigEndian(m_usable.sliced(m_cells + 2 * index, 2)));
        if (at < m_cells + 2 * m_cellCount || at + 4 > m_usable.size())
            return {};
        return m_usable.sliced(at);
    }

private:
    QByteArray m_bytes;
    QByteArrayView m_usable;
    qsizetype m_header = 0;
    qsizetype m_cells = 0;
    int m_cellCount = 0;
    PageType m_type = Lost;
};

SalvageFile::SalvageFile(const QString &path) : m_file(path)
{
    if (!QFileInfo::exists(path))
        throw EngineError(DatabaseFileNotFound, path);
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw EngineError(PermissionDenied, m_file.errorString());
    m_header = m_file.read(fileHeaderSize);
    if (m_header.size() < fileHeaderSize || !m_header.startsWith(magic))
        throw EngineError(UnrecognizedFormat, path);
    m_pageSize = std::uint32_t(readBigEndian(m_header.sliced(16, 2)));
    if (m_pageSize == 1) // 65536 does not fit the field
        m_pageSize = 65536;
    m_usableSize = m_pageSize - std::uint8_t(m_header[20]);
    if (m_pageSize < 512 || !std::has_single_bit(m_pageSize) || m_usableSize < 480)
        throw EngineError(UnrecognizedFormat, path);
    m_pageCount = std::uint32_t((m_file.size() + m_pageSize - 1) / m_pageSize);
    if (const std::uint32_t encoding = number32(m_header, 56); encoding == 2 || encoding == 3)
        m_encoding = SalvagedEncoding(encoding);
    m_claimed.resize(m_pageCount + 1);
}

int SalvageFile::userVersion() const
{
    return int(number32(m_header, 60));
}

int SalvageFile::applicationId() const
{
    return int(number32(m_header, 68));
}

/// Empty when the disk does not give the page back.
QByteArray SalvageFile::readPage(std::uint32_t number)
{
    if (!m_file.seek(qint64(number - 1) * m_pageSize))
        return {};
    const QByteArray bytes = m_file.read(m_pageSize);
    return bytes.size() < leafHeaderSize ? QByteArray() : bytes;
}

/// Whether the page exists and is claimed for the first time.
bool SalvageFile::claim(std::uint32_t number)
{
    if (number == 0 || number > m_pageCount || m_claimed[number])
        return false;
    m_claimed[number] = true;
    return true;
}

SalvageFile::Page SalvageFile::treePage(std::uint32_t number)
{
    const QByteArray bytes = claim(number) ? readPage(number) : QByteArray();
    return bytes.isEmpty() ? Page() : Page(bytes, m_usableSize, number);
}

TableLosses SalvageFile::readTable(std::uint32_t rootPage, int columnCount, const RowVisitor &visitor)
{
    struct Subtree
    {
        std::uint32_t page;
        RowRange range;
    };
    // The subtrees below an inner page, the last first; none when its keys do not rise within its range.
    const auto children = [](const Page &page, const RowRange &range) {
        std::vector<Subtree> result;
        RowRange rest = range;
        for (int i = 0; i < page.cellCount(); ++i) {
            const QByteArrayView cell = page.cell(i);
            const Varint key = cell.isEmpty() ? Varint() : readVarint(cell.sliced(4));
            if (key.size == 0 || !rest.contains(std::int64_t(key.value)))
                return std::vector<Subtree>();
            result.push_back({number32(cell, 0), {rest.after, std::int64_t(key.value)}});
            rest.after = std::int64_t(key.value);
        }
        result.push_back({page.rightChild(), rest});
        std::reverse(result.begin(), result.end());
        return result;
    };

    TableLosses losses;
    std::vector<Subtree> toRead{{rootPage, {}}};
    while (!toRead.empty()) {
        const Subtree subtree = toRead.back();
        toRead.pop_back();
        const Page page = treePage(subtree.page);
        if (page.type() == TableLeaf) {
            for (int i = 0; i < page.cellCount(); ++i) {
                if (const auto row = readRow(page, i, subtree.range, columnCount))
                    visitor(*row);
                else
                    ++losses.cells;
            }
            continue;
        }
        std::vector<Subtree> below;
        if (page.type() == TableInterior)
            below = children(page, subtree.range);
        if (below.empty())
            losses.ranges.push_back(subtree.range);
        toRead.insert(toRead.end(), below.begin(), below.end());
    }
    return losses;
}

std::optional<SalvagedRow> SalvageFile::readRow(const Page &page, int cell, const RowRange &range,
                                                int columnCount)
{
    QByteArrayView bytes = page.cell(cell);
    const Varint size = readVarint(bytes);
    const Varint id = readVarint(bytes.sliced(size.size));
    if (size.size == 0 || id.size == 0 || !range.contains(std::int64_t(id.value)))
        return {};
    const Payload payload = findPayload(bytes.sliced(size.size + id.size), size.value, m_usableSize - 35);
    const auto layout = RecordLayout::read(payload.local, size.value);
    if (!layout || layout->columnCount() == 0 || layout->columnCount() > std::size_t(columnCount))
        return {};
    const QByteArray record = readPayload(payload, size.value);
    SalvagedRow row{std::int64_t(id.value), {}, true};
    for (std::size_t column = 0; column < layout->columnCount(); ++column) {
        const auto value = layout->value(column, record, m_encoding);
        row.complete = row.complete && value;
        row.values.push_back(value.value_or(SalvagedValue()));
    }
    return row;
}

void SalvageFile::readIndex(std::uint32_t rootPage, const std::function<void(std::int64_t)> &visitor)
{
    std::vector<std::uint32_t> toRead{rootPage};
    while (!toRead.empty()) {
        const Page page = treePage(toRead.back());
        toRead.pop_back();
        const bool interior = page.type() == IndexInterior;
        if (!interior && page.type() != IndexLeaf)
            continue;
        if (interior)
            toRead.push_back(page.rightChild());
        for (int i = 0; i < page.cellCount(); ++i) {
            QByteArrayView cell = page.cell(i);
            if (interior && !cell.isEmpty()) {
                toRead.push_back(number32(cell, 0));
                cell = cell.sliced(4);
            }
            if (const auto id = readIndexedId(cell))
                visitor(*id);
        }
    }
}

/// The last column of an index entry is the id of the row.
std::optional<std::int64_t> SalvageFile::readIndexedId(QByteArrayView cell)
{
    const Varint size = readVarint(cell);
    if (size.size == 0)
        return {};
    const Payload payload =
        findPayload(cell.sliced(size.size), size.value, (m_usableSize - 12) * 64 / 255 - 23);
    const auto layout = RecordLayout::read(payload.local, size.value);
    if (!layout || layout->columnCount() == 0)
        return {};
    const auto id = layout->value(layout->columnCount() - 1, readPayload(payload, size.value), m_encoding);
    const auto *number = id ? std::get_if<std::int64_t>(&*id) : nullptr;
    return number ? std::optional(*number) : std::nullopt;
}

/// Splits the bytes behind a cell's header: a payload above \a mostLocal bytes continues on overflow pages.
SalvageFile::Payload SalvageFile::findPayload(QByteArrayView bytes, std::uint64_t size,
                                              std::uint64_t mostLocal) const
{
    if (size <= mostLocal)
        return {bytes.first(std::min(bytes.size(), qsizetype(size))), 0};
    const std::uint64_t leastLocal = (m_usableSize - 12) * 32 / 255 - 23;
    const std::uint64_t filling = leastLocal + (size - leastLocal) % (m_usableSize - 4);
    const auto localSize = qsizetype(filling <= mostLocal ? filling : leastLocal);
    if (localSize + 4 > bytes.size())
        return {bytes.first(std::min(bytes.size(), localSize)), 0};
    return {bytes.first(localSize), number32(bytes, localSize)};
}

/// The payload, or its readable beginning.
QByteArray SalvageFile::readPayload(const Payload &payload, std::uint64_t size)
{
    QByteArray result = payload.local.toByteArray();
    std::uint32_t next = payload.overflowPage;
    while (std::uint64_t(result.size()) < size && claim(next)) {
        const QByteArray page = readPage(next);
        if (page.isEmpty())
            break;
        const QByteArrayView content =
            QByteArrayView(page).first(std::min(page.size(), qsizetype(m_usableSize)));
        const std::uint64_t missing = size - std::uint64_t(result.size());
        result.append(content.sliced(4, qsizetype(std::min(missing, std::uint64_t(content.size() - 4)))));
        next = number32(page, 0);
    }
    return result;
}

void SalvageFile::readStrayPages(const std::function<void(const std::vector<SalvagedRow> &)> &visitor)
{
    claimFreePages();
    for (std::uint32_t number = 2; number <= m_pageCount; ++number) {
        if (m_claimed[number])
            continue;
        const QByteArray bytes = readPage(number);
        if (bytes.isEmpty() || std::uint8_t(bytes[0]) != TableLeaf)
            continue;
        const Page page = treePage(number);
        std::vector<SalvagedRow> rows;
        for (int i = 0; i < page.cellCount(); ++i) {
            if (auto row = readRow(page, i, {}, std::numeric_limits<int>::max()))
                rows.push_back(std::move(*row));
        }
        if (!rows.empty())
            visitor(rows);
    }
}

void SalvageFile::claimFreePages()
{
    std::uint32_t trunk = number32(m_header, 32);
    while (claim(trunk)) {
        const QByteArray page = readPage(trunk);
        if (page.isEmpty())
            break;
        const std::uint32_t count = std::min(number32(page, 4), std::uint32_t(page.size()) / 4 - 2);
        for (std::uint32_t i = 0; i < count; ++i)
            claim(number32(page, 8 + 4 * qsizetype(i)));
        trunk = number32(page, 0);
    }
}

} // namespace obelmark
