// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <bit>
#include <cstring>
#include <type_traits>

namespace obelmark {

/// Reads the numbers of a file format, little-endian, never beyond the bytes it was given.
class ByteReader
{
public:
    /// Raised by a read beyond the end.
    struct End
    {
    };

    /// The bytes must outlive the reader.
    explicit ByteReader(QByteArrayView bytes, qsizetype position = 0) : m_bytes(bytes) { seek(position); }

    template<class Number>
    Number read()
    {
        static_assert(std::is_arithmetic_v<Number> && std::endian::native == std::endian::little);
        Number number;
        std::memcpy(&number, take(sizeof number).data(), sizeof number);
        return number;
    }
    QByteArrayView take(qsizetype count)
    {
        if (count < 0 || count > left())
            throw End();
        const QByteArrayView taken = m_bytes.sliced(m_position, count);
        m_position += count;
        return taken;
    }
    void skip(qsizetype count) { take(count); }
    void seek(qsizetype position)
    {
        if (position < 0 || position > m_bytes.size())
            throw End();
        m_position = position;
    }
    qsizetype position() const { return m_position; }
    qsizetype left() const { return m_bytes.size() - m_position; }

private:
    QByteArrayView m_bytes;
    qsizetype m_position = 0;
};

} // namespace obelmark
