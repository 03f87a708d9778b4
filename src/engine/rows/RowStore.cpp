// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/RowStore.h"
#include <cstring>

namespace obelmark {

namespace {

/// A cell is its index in SqlCell as one byte, then the number, or the length and the bytes.
enum CellKind : char { Null, Integer, Real, Text, Bytes };

template<class Number>
Number numberAt(const char *p)
{
    Number number;
    std::memcpy(&number, p, sizeof number);
    return number;
}

size_t cellSize(const char *p)
{
    switch (CellKind(*p)) {
    case Null:
        return 1;
    case Integer:
    case Real:
        return 1 + sizeof(qint64);
    case Text:
    case Bytes:
        return 1 + sizeof(quint32) + numberAt<quint32>(p + 1);
    }
    Q_UNREACHABLE();
}

} // namespace

template<class Number>
void RowStore::appendNumber(Number number)
{
    const auto *p = reinterpret_cast<const char *>(&number);
    m_bytes.insert(m_bytes.end(), p, p + sizeof number);
}

void RowStore::appendBytes(std::string_view bytes)
{
    appendNumber(quint32(bytes.size()));
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void RowStore::append(const SQLite::Statement &row)
{
    m_rows.push_back(m_bytes.size());
    for (int i = 0; i < row.getColumnCount(); ++i) {
        const SqlCell cell = cellAt(row, i);
        m_bytes.push_back(char(cell.index()));
        if (const auto *integer = std::get_if<Integer>(&cell))
            appendNumber(*integer);
        else if (const auto *real = std::get_if<Real>(&cell))
            appendNumber(*real);
        else if (const auto *text = std::get_if<Text>(&cell))
            appendBytes(*text);
        else if (const auto *blob = std::get_if<Bytes>(&cell))
            appendBytes(blob->bytes);
    }
}

SqlCell RowStore::cell(qint64 row, int column) const
{
    const char *p = m_bytes.data() + m_rows[size_t(row)];
    for (; column > 0; --column)
        p += cellSize(p);
    const auto bytes = [p] { return std::string_view(p + 1 + sizeof(quint32), numberAt<quint32>(p + 1)); };
    switch (CellKind(*p)) {
    case Null:
        return {};
    case Integer:
        return numberAt<qint64>(p + 1);
    case Real:
        return numberAt<double>(p + 1);
    case Text:
        return bytes();
    case Bytes:
        return BlobOf<std::string_view>{bytes()};
    }
    Q_UNREACHABLE();
}

} // namespace obelmark
