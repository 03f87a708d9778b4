// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/SalvageRecord.h"

#include <QStringDecoder>
#include <array>
#include <bit>

namespace obelmark {

namespace {

// Serial types below 12 have fixed sizes; 10 and 11 never occur in a file.
enum SerialType : std::uint64_t {
    Null = 0,
    Float = 7,
    Zero = 8,
    One = 9,
    FirstReserved = 10,
    FirstSized = 12
};
constexpr std::array<std::uint64_t, FirstReserved> fixedSizes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0};

/// Nothing when the bytes are no text; a zero in it is what a lost sector leaves.
std::optional<std::string> toUtf8(QByteArrayView bytes, SalvagedEncoding encoding)
{
    if (encoding == SalvagedEncoding::Utf8) {
        if (!bytes.isValidUtf8() || bytes.contains('\0'))
            return {};
        return std::string(bytes.data(), std::size_t(bytes.size()));
    }
    QStringDecoder decoder(encoding == SalvagedEncoding::Utf16LE ? QStringDecoder::Utf16LE
                                                                 : QStringDecoder::Utf16BE);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError() || text.contains(QChar::Null))
        return {};
    return text.toStdString();
}

std::int64_t readSigned(QByteArrayView bytes)
{
    const int unusedBits = 64 - int(bytes.size()) * 8;
    return std::int64_t(readBigEndian(bytes) << unusedBits) >> unusedBits;
}

} // namespace

Varint readVarint(QByteArrayView bytes)
{
    Varint result;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = std::uint8_t(bytes[i]);
        if (i == 8) // the ninth byte counts with all its bits
            return {result.value << 8 | byte, 9};
        result.value = result.value << 7 | (byte & 0x7F);
        if (byte < 0x80)
            return {result.value, int(i) + 1};
    }
    return {};
}

std::uint64_t readBigEndian(QByteArrayView bytes)
{
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | std::uint8_t(byte);
    return value;
}

std::optional<RecordLayout> RecordLayout::read(QByteArrayView begin, std::uint64_t size)
{
    const Varint headerSize = readVarint(begin);
    if (headerSize.size == 0 || headerSize.value > std::uint64_t(begin.size()) ||
        headerSize.value < std::uint64_t(headerSize.size) || headerSize.value > size)
        return {};
    RecordLayout layout;
    QByteArrayView header = begin.first(qsizetype(headerSize.value)).sliced(headerSize.size);
    std::uint64_t offset = headerSize.value;
    while (!header.isEmpty()) {
        const Varint type = readVarint(header);
        if (type.size == 0 || (type.value >= FirstReserved && type.value < FirstSized))
            return {};
        const std::uint64_t columnSize =
            type.value < FirstReserved ? fixedSizes[type.value] : (type.value - FirstSized) / 2;
        if (columnSize > size - offset)
            return {};
        layout.m_columns.push_back({type.value, offset, columnSize});
        offset += columnSize;
        header = header.sliced(type.size);
    }
    if (offset != size)
        return {};
    return layout;
}

std::optional<SalvagedValue> RecordLayout::value(std::size_t column, QByteArrayView record,
                                                 SalvagedEncoding encoding) const
{
    const Column &place = m_columns.at(column);
    if (place.offset + place.size > std::uint64_t(record.size()))
        return {};
    const QByteArrayView bytes = record.sliced(qsizetype(place.offset), qsizetype(place.size));
    switch (place.serialType) {
    case Null:
        return SalvagedValue();
    case Float:
        return std::bit_cast<double>(readBigEndian(bytes));
    case Zero:
        return std::int64_t(0);
    case One:
        return std::int64_t(1);
    default:
        if (place.serialType < Float)
            return readSigned(bytes);
        if (place.serialType % 2 == 0)
            return bytes.toByteArray();
        return toUtf8(bytes, encoding);
    }
}

} // namespace obelmark
