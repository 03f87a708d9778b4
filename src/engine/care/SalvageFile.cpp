// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/SalvageFile.h"

#include "engine/language/EngineError.h"
#include <QFileInfo>
#include <algorithm>
#include <bit>
#include <functional>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int leafHeaderSize = 8;
constexpr int innerHeaderSize = 12;
/// Enough to learn how the pages are made.
constexpr std::uint32_t mostPagesLookedAt = 2000;
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
    bool isIndex() const { return m_type == IndexInterior || m_type == IndexLeaf; }
    bool isInterior() const { return m_type == IndexInterior || m_type == TableInterior; }
    /// Whether there are entries and each lies behind the list of them.
    bool isPlausible() const
    {
        for (int i = 0; i < m_cellCount; ++i) {
            if (cell(i).isEmpty())
                return false;
        }
        return m_cellCount > 0;
    }
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
    if (m_header.size() < fileHeaderSize)
        throw EngineError(UnrecognizedFormat, path);
    findPageSize();
    m_claimed.resize(m_pageCount + 1);
    m_mayBeReadAgain = m_pageCount;
    if (const std::uint32_t encoding = number32(m_header, 56); encoding == 2 || encoding == 3)
        m_encoding = SalvagedEncoding(encoding);
    findFreePages();
}

/// What the header says when the pages agree, else the size that most of the file makes sense with.
void SalvageFile::findPageSize()
{
    const auto stated = std::uint32_t(readBigEndian(m_header.sliced(16, 2)));
    // The size that new files have comes before the others; 65536 does not fit the header's field.
    std::vector<std::uint32_t> sizes{stated == 1 ? 65536 : stated, 4096};
    for (std::uint32_t size = 512; size <= 65536; size *= 2)
        sizes.push_back(size);
    std::uint32_t best = 0;
    const bool isHeaderRight = m_header.startsWith(magic);
    int most = isHeaderRight ? -1 : 0;
    for (const std::uint32_t size : sizes) {
        if (size < 512 || size > 65536 || !std::has_single_bit(size))
            continue;
        const int count = countTreePages(size);
        if (count <= most)
            continue;
        most = count;
        best = size;
        if (size == stated && isHeaderRight && count > 0)
            break; // a wrong bit would not leave a power of two
    }
    if (best == 0)
        throw EngineError(UnrecognizedFormat, path());
    m_pageSize = m_usableSize = best;
    m_pageCount = std::uint32_t((m_file.size() + m_pageSize - 1) / m_pageSize);
    // Some tools keep room for themselves at the end of every page.
    const std::uint32_t room = std::uint8_t(m_header[20]);
    if (room != 0 && m_pageSize >= 480 + room && keepsRoomAtEnds(room))
        m_usableSize -= room;
}

/// The first entry of a page lies at the end of what is used: there is room only where there are zeros.
bool SalvageFile::keepsRoomAtEnds(std::uint32_t room)
{
    for (std::uint32_t number = 1; number <= std::min(m_pageCount, mostPagesLookedAt); ++number) {
        const QByteArray content = readPage(number);
        if (content.size() == qsizetype(m_pageSize) && Page(content, m_pageSize, number).isPlausible() &&
            content.last(room) != QByteArray(qsizetype(room), '\0'))
            return false;
    }
    return true;
}

/// How many pages of the file's beginning look like those of trees when pages have that size. In smaller ones
/// most entries would lie beyond the end, and larger ones are fewer.
int SalvageFile::countTreePages(std::uint32_t pageSize)
{
    m_pageSize = pageSize;
    int count = 0;
    for (std::uint32_t number = 1; number <= mostPagesLookedAt; ++number) {
        const QByteArray content = readPage(number);
        if (content.isEmpty())
            break;
        count += Page(content, pageSize, number).isPlausible();
    }
    return count;
}

void SalvageFile::startAnew(SalvagedEncoding encoding)
{
    m_encoding = encoding;
    releaseFrom(0);
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
    m_claims.push_back(number);
    return true;
}

/// Takes back the claims from that one on.
void SalvageFile::releaseFrom(std::size_t claim)
{
    for (; m_claims.size() > claim; m_claims.pop_back())
        m_claimed[m_claims.back()] = false;
}

SalvageFile::Page SalvageFile::treePage(std::uint32_t number)
{
    const QByteArray bytes = claim(number) ? readPage(number) : QByteArray();
    return bytes.isEmpty() ? Page() : Page(bytes, m_usableSize, number);
}

TableLosses SalvageFile::readTable(std::uint32_t rootPage, const PageTest &isOurs, const RowVisitor &visitor)
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
        const std::size_t claimsBefore = m_claims.size();
        const Page page = treePage(subtree.page);
        if (page.type() == TableLeaf) {
            const std::vector<SalvagedRow> rows = readLeaf(page, subtree.range);
            const bool isEmptyTable = page.cellCount() == 0 && subtree.page == rootPage;
            if (!isEmptyTable && (rows.empty() || !isOurs(rows))) {
                losses.ranges.push_back(subtree.range);
                releaseFrom(claimsBefore); // it may be another's page that lies here
            } else {
                std::for_each(rows.begin(), rows.end(), visitor);
                losses.cells += page.cellCount() > qsizetype(rows.size()); // the number of cells may be wrong
            }
            continue;
        }
        std::vector<Subtree> below;
        if (page.type() == TableInterior)
            below = children(page, subtree.range);
        if (below.empty()) {
            losses.ranges.push_back(subtree.range);
            releaseFrom(claimsBefore);
        }
        toRead.insert(toRead.end(), below.begin(), below.end());
    }
    return losses;
}

bool SalvageFile::hasPage(std::uint32_t rootPage, const PageTest &test)
{
    const std::size_t claimsBefore = m_claims.size();
    bool isThere = false;
    const auto look = [&](const std::vector<SalvagedRow> &rows) {
        isThere = isThere || test(rows);
        return false;
    };
    readTable(rootPage, look, [](const SalvagedRow &) {});
    releaseFrom(claimsBefore);
    return isThere;
}

TreeKind SalvageFile::kindOf(std::uint32_t number)
{
    if (number == 0 || number > m_pageCount)
        return TreeKind::None;
    switch (Page(readPage(number), m_usableSize, number).type()) {
    case TableInterior:
    case TableLeaf:
        return TreeKind::Table;
    case IndexInterior:
    case IndexLeaf:
        return TreeKind::Index;
    default:
        return TreeKind::None;
    }
}

/// The rows of a leaf that lie within \a range and rise: of those that do not, the fewest are left out. None
/// when most do not lie within it: then the page is another's.
std::vector<SalvagedRow> SalvageFile::readLeaf(const Page &page, const RowRange &range)
{
    std::vector<SalvagedRow> rows;
    for (int i = 0; i < page.cellCount(); ++i) {
        if (auto row = readRow(page, i))
            rows.push_back(std::move(*row));
    }
    const std::size_t readable = rows.size();
    std::erase_if(rows, [&](const SalvagedRow &row) { return !range.contains(row.id); });
    if (2 * rows.size() < readable)
        return {};
    const auto rises = [](const SalvagedRow &a, const SalvagedRow &b) { return a.id < b.id; };
    if (std::is_sorted(rows.begin(), rows.end(), rises) &&
        std::adjacent_find(rows.begin(), rows.end(), std::not_fn(rises)) == rows.end())
        return rows;
    // The longest rising sequence: for each row its length up to there and the row before it.
    std::vector<std::pair<int, int>> sequences;
    int last = 0;
    for (int i = 0; i < int(rows.size()); ++i) {
        sequences.emplace_back(1, -1);
        for (int before = 0; before < i; ++before) {
            if (rises(rows[before], rows[i]) && sequences[before].first >= sequences[i].first)
                sequences[i] = {sequences[before].first + 1, before};
        }
        if (sequences[i].first > sequences[last].first)
            last = i;
    }
    std::vector<SalvagedRow> rising;
    for (; last >= 0; last = sequences[last].second) {
        // Of two rows of one id, the first is the misread one when there is no room for it behind.
        const bool isTwice = last + 2 < int(rows.size()) && rows[last].id == rows[last + 1].id &&
                             rows[last + 2].id == rows[last].id + 1;
        rising.push_back(rows[isTwice ? last + 1 : last]);
    }
    std::reverse(rising.begin(), rising.end());
    return rising;
}

std::optional<SalvagedRow> SalvageFile::readRow(const Page &page, int cell)
{
    const QByteArrayView bytes = page.cell(cell);
    const Varint size = readVarint(bytes);
    const Varint id = readVarint(bytes.sliced(size.size));
    if (size.size == 0 || id.size == 0)
        return {};
    const Payload payload = findPayload(bytes.sliced(size.size + id.size), size.value, m_usableSize - 35);
    const auto layout = RecordLayout::read(payload.local, size.value);
    if (!layout || layout->columnCount() == 0)
        return {};
    SalvagedRow row = readValues(*layout, readPayload(payload, size.value));
    row.id = std::int64_t(id.value);
    return row;
}

SalvagedRow SalvageFile::readValues(const RecordLayout &layout, const QByteArray &record) const
{
    SalvagedRow row;
    for (std::size_t column = 0; column < layout.columnCount(); ++column) {
        const auto value = layout.value(column, record, m_encoding);
        row.complete = row.complete && value;
        row.values.push_back(value.value_or(SalvagedValue()));
    }
    return row;
}

bool SalvageFile::readIndex(std::uint32_t rootPage, const PageTest &visitor)
{
    bool whole = true;
    std::vector<std::uint32_t> toRead{rootPage};
    while (!toRead.empty()) {
        const std::size_t claimsBefore = m_claims.size();
        const Page page = treePage(toRead.back());
        toRead.pop_back();
        std::vector<std::uint32_t> below;
        std::vector<SalvagedRow> entries;
        if (page.isInterior())
            below.push_back(page.rightChild());
        for (int i = 0; i < page.cellCount() && page.isIndex(); ++i) {
            QByteArrayView cell = page.cell(i);
            if (page.isInterior() && !cell.isEmpty()) {
                below.push_back(number32(cell, 0));
                cell = cell.sliced(4);
            }
            if (auto entry = readEntry(cell))
                entries.push_back(std::move(*entry));
            else
                whole = false;
        }
        whole = whole && page.cellCount() > 0; // only an index of nothing has an empty page
        if (!page.isIndex() || (!entries.empty() && !visitor(entries))) {
            whole = false;
            releaseFrom(claimsBefore); // it may be another's page that lies here
        } else {
            toRead.insert(toRead.end(), below.begin(), below.end());
        }
    }
    return whole;
}

/// An entry of an index: the indexed columns and, as the last, the id of the row, which is also row.id.
std::optional<SalvagedRow> SalvageFile::readEntry(QByteArrayView cell)
{
    const Varint size = readVarint(cell);
    if (size.size == 0)
        return {};
    const Payload payload =
        findPayload(cell.sliced(size.size), size.value, (m_usableSize - 12) * 64 / 255 - 23);
    const auto layout = RecordLayout::read(payload.local, size.value);
    if (!layout || layout->columnCount() == 0)
        return {};
    SalvagedRow entry = readValues(*layout, readPayload(payload, size.value));
    const auto *id = std::get_if<std::int64_t>(&entry.values.back());
    if (!entry.complete || !id)
        return {};
    entry.id = *id;
    return entry;
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

/// The payload, or its readable beginning. Pages that do not lead to its end may be another's.
QByteArray SalvageFile::readPayload(const Payload &payload, std::uint64_t size)
{
    QByteArray result = payload.local.toByteArray();
    const std::size_t claimsBefore = m_claims.size();
    std::uint32_t next = payload.overflowPage;
    while (std::uint64_t(result.size()) < size && claim(next)) {
        const QByteArray page = readPage(next);
        if (page.isEmpty())
            break;
        const QByteArrayView content =
            QByteArrayView(page).first(std::min(page.size(), qsizetype(m_usableSize)));
        const std::uint64_t missing = size - std::uint64_t(result.size());
        next = number32(page, 0);
        // The last page says that it is the last; another's page does not.
        const bool isLast = missing <= std::uint64_t(content.size() - 4);
        if (isLast ? next != 0 : next == 0 || next > m_pageCount)
            break;
        result.append(content.sliced(4, qsizetype(std::min(missing, std::uint64_t(content.size() - 4)))));
    }
    const std::size_t claimed = m_claims.size() - claimsBefore;
    if (std::uint64_t(result.size()) < size && claimed <= m_mayBeReadAgain) {
        m_mayBeReadAgain -= claimed;
        releaseFrom(claimsBefore);
    }
    return result;
}

void SalvageFile::readStrayPages(const PageTest &visitor)
{
    for (std::uint32_t number = 1; number <= m_pageCount; ++number) {
        if (m_claimed[number] || m_free[number])
            continue;
        const std::size_t claimsBefore = m_claims.size();
        const Page page = treePage(number);
        std::vector<SalvagedRow> rows;
        if (page.type() == TableLeaf)
            rows = readLeaf(page, {});
        if (rows.empty() || !visitor(rows))
            releaseFrom(claimsBefore);
    }
}

/// Follows the chain of free pages, as far as it makes sense.
void SalvageFile::findFreePages()
{
    m_free.assign(m_pageCount + 1, false);
    std::uint32_t found = 0;
    const auto mark = [&](std::uint32_t number) {
        if (number < 2 || number > m_pageCount || m_free[number])
            return false;
        m_free[number] = true;
        ++found;
        return true;
    };
    std::uint32_t trunk = number32(m_header, 32);
    while (trunk >= 2 && trunk <= m_pageCount && !m_free[trunk]) {
        const QByteArray page = readPage(trunk);
        if (page.size() < qsizetype(m_usableSize))
            break;
        const std::uint32_t count = number32(page, 4);
        const std::uint32_t next = number32(page, 0);
        if (next > m_pageCount || count > m_usableSize / 4 - 2)
            break; // no such page
        mark(trunk);
        for (std::uint32_t i = 0; i < count; ++i)
            mark(number32(page, 8 + 4 * qsizetype(i)));
        trunk = next;
    }
    m_knowsFreePages = m_header.startsWith(magic) && trunk == 0 && found == number32(m_header, 36);
}

} // namespace obelmark
