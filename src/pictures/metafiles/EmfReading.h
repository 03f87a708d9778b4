// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/ByteReader.h"
#include <QRectF>
#include <QString>

namespace obelmark::emf {

/// The numbers of points and rectangles of a record, four bytes each, or two in the short forms.
template<class Number>
QPointF point(ByteReader &reader)
{
    const double x = reader.read<Number>();
    return QPointF(x, reader.read<Number>());
}

inline QPointF point(ByteReader &reader)
{
    return point<qint32>(reader);
}

inline QRectF rect(ByteReader &reader)
{
    const QPointF topLeft = point(reader);
    return QRectF(topLeft, point(reader)).normalized();
}

/// "x, y, width, height".
inline QRectF area(ByteReader &reader)
{
    const QPointF topLeft = point(reader), size = point(reader);
    return QRectF(topLeft, QSizeF(size.x(), size.y()));
}

inline QString utf16Text(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), size_t(text.size()) * 2);
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}

} // namespace obelmark::emf
