// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/ByteReader.h"
#include <QPointF>
#include <array>

namespace obelmark::wmf {

/// Numbers of a record: two bytes each, those of a call in reverse order.
template<size_t Count>
std::array<int, Count> shorts(ByteReader &reader)
{
    std::array<int, Count> numbers;
    for (int &number : numbers)
        number = reader.read<qint16>();
    return numbers;
}

/// "y, x".
inline QPointF reversedPoint(ByteReader &reader)
{
    const auto [y, x] = shorts<2>(reader);
    return QPointF(x, y);
}

} // namespace obelmark::wmf
