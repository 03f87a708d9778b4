// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace obelmark {

/// A column's value as it lies in a database file; text is UTF-8, whatever the file's encoding.
using SalvagedValue = std::variant<std::monostate, std::int64_t, double, std::string, QByteArray>;

/// The text encodings of a database file, as its header numbers them.
enum class SalvagedEncoding { Utf8 = 1, Utf16LE = 2, Utf16BE = 3 };

/// A whole number of one to nine bytes as the file format packs it. Size 0: it runs past the end.
struct Varint
{
    std::uint64_t value = 0;
    int size = 0;
};
Varint readVarint(QByteArrayView bytes);

/// An unsigned whole number, most significant byte first, of at most eight bytes.
std::uint64_t readBigEndian(QByteArrayView bytes);

/// Where the columns of one record lie (https://www.sqlite.org/fileformat2.html, section 2.1).
class RecordLayout
{
public:
    /// Reads the header of a record of \a size bytes, of which \a begin are the first. Nothing when the
    /// header does not add up to exactly that size: then these bytes are no record.
    static std::optional<RecordLayout> read(QByteArrayView begin, std::uint64_t size);

    std::size_t columnCount() const { return m_columns.size(); }
    /// The value of a column; nothing when it is not wholly within \a record (which may have lost its end) or
    /// is text that is none.
    std::optional<SalvagedValue> value(std::size_t column, QByteArrayView record,
                                       SalvagedEncoding encoding) const;

private:
    struct Column
    {
        std::uint64_t serialType;
        std::uint64_t offset;
        std::uint64_t size;
    };
    std::vector<Column> m_columns;
};

} // namespace obelmark
