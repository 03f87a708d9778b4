// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/WmfRecords.h"

#include "pictures/metafiles/WmfReading.h"

namespace obelmark {

namespace {

using namespace wmf;
using Canvas = MetafileCanvas;

/// "bottom, right, top, left".
QRectF reversedRect(ByteReader &reader)
{
    const auto [bottom, right, top, left] = shorts<4>(reader);
    return QRectF(QPointF(left, top), QPointF(right, bottom)).normalized();
}

Canvas::Points points(ByteReader &reader, int count)
{
    Canvas::Points list;
    for (int i = 0; i < count; ++i) {
        const auto [x, y] = shorts<2>(reader);
        list.emplace_back(x, y);
    }
    return list;
}

QString latinText(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return QString::fromLatin1(end < 0 ? bytes : bytes.first(end));
}

/// An object takes the lowest free number.
void add(Canvas &canvas, const MetafileObject &object)
{
    quint32 number = 0;
    for (const auto &[taken, other] : canvas.objects) {
        if (taken != number)
            break;
        ++number;
    }
    canvas.objects[number] = object;
}

void createPen(Canvas &canvas, ByteReader &reader)
{
    const auto style = reader.read<quint16>();
    const auto [width, unused] = shorts<2>(reader);
    add(canvas, metafilePen(style, width, reader.read<quint32>()));
}

void createBrush(Canvas &canvas, ByteReader &reader)
{
    const auto style = reader.read<quint16>();
    const auto color = reader.read<quint32>();
    add(canvas, metafileBrush(style, color, reader.read<quint16>()));
}

void createFont(Canvas &canvas, ByteReader &reader)
{
    const auto [height, width, angle, orientation, weight] = shorts<5>(reader);
    const bool italic = reader.read<quint8>(), underline = reader.read<quint8>(),
               strikeOut = reader.read<quint8>();
    reader.skip(5);
    const QByteArrayView family = reader.take(std::min<qsizetype>(32, reader.left()));
    add(canvas, metafileFont(height, angle, weight, italic, underline, strikeOut, latinText(family)));
}

void polyPolygon(Canvas &canvas, ByteReader &reader)
{
    std::vector<int> counts(reader.read<quint16>());
    for (int &count : counts)
        count = reader.read<quint16>();
    std::vector<Canvas::Points> polygons;
    for (const int count : counts)
        polygons.push_back(points(reader, count));
    canvas.polygons(polygons);
}

void textOut(Canvas &canvas, ByteReader &reader)
{
    const int length = reader.read<qint16>();
    const QString text = QString::fromLatin1(reader.take(length));
    reader.skip(length % 2);
    canvas.text(reversedPoint(reader), text);
}

void extTextOut(Canvas &canvas, ByteReader &reader)
{
    constexpr int opaque = 2, clipped = 4;
    const QPointF place = reversedPoint(reader);
    const int length = reader.read<qint16>();
    if (reader.read<quint16>() & (opaque | clipped))
        reader.skip(8);
    canvas.text(place, QString::fromLatin1(reader.take(length)));
}

void arc(Canvas &canvas, ByteReader &reader, Canvas::Arc kind)
{
    const QPointF to = reversedPoint(reader), from = reversedPoint(reader);
    canvas.arc(reversedRect(reader), from, to, kind);
}

/// "height, width, y, x".
QRectF area(ByteReader &reader)
{
    const auto [height, width, y, x] = shorts<4>(reader);
    return QRectF(x, y, width, height);
}

void bitmap(Canvas &canvas, ByteReader &reader, bool hasUsage)
{
    const auto operation = RasterOperation(reader.read<quint32>());
    if (hasUsage)
        reader.skip(2);
    const QRectF source = area(reader), target = area(reader);
    canvas.bitmap(target, reader.take(reader.left()).toByteArray(), source, operation);
}

/// Without a size of its own in the source.
void bitBlt(Canvas &canvas, ByteReader &reader)
{
    const auto operation = RasterOperation(reader.read<quint32>());
    const QPointF source = reversedPoint(reader);
    const QRectF target = area(reader);
    canvas.bitmap(target, reader.take(reader.left()).toByteArray(), {source, target.size()}, operation);
}

constexpr MetafileRecord<Meta> records[] = {
    {Meta::SaveDC, [](Canvas &c, ByteReader &) { c.save(); }},
    {Meta::RestoreDC, [](Canvas &c, ByteReader &r) { c.restore(r.read<qint16>()); }},
    {Meta::SetBkMode, [](Canvas &c, ByteReader &r) { c.state.setBackgroundMode(r.read<quint16>()); }},
    {Meta::SetBkColor,
     [](Canvas &c, ByteReader &r) { c.state.background = metafileColor(r.read<quint32>()); }},
    {Meta::SetTextColor,
     [](Canvas &c, ByteReader &r) { c.state.textColor = metafileColor(r.read<quint32>()); }},
    {Meta::SetTextAlign, [](Canvas &c, ByteReader &r) { c.state.align = r.read<quint16>(); }},
    {Meta::SetPolyFillMode, [](Canvas &c, ByteReader &r) { c.state.setFillMode(r.read<quint16>()); }},
    {Meta::SetWindowOrg, [](Canvas &c, ByteReader &r) { c.state.windowOrigin = reversedPoint(r); }},
    {Meta::SetWindowExt, [](Canvas &c, ByteReader &r) { c.state.windowExtent = reversedPoint(r); }},
    {Meta::OffsetWindowOrg, [](Canvas &c, ByteReader &r) { c.state.windowOrigin += reversedPoint(r); }},
    {Meta::CreatePenIndirect, createPen},
    {Meta::CreateBrushIndirect, createBrush},
    {Meta::CreateFontIndirect, createFont},
    {Meta::CreatePalette, [](Canvas &c, ByteReader &) { add(c, {}); }},
    {Meta::CreatePatternBrush, [](Canvas &c, ByteReader &) { add(c, QBrush(Qt::Dense4Pattern)); }},
    {Meta::DibCreatePatternBrush, [](Canvas &c, ByteReader &) { add(c, QBrush(Qt::Dense4Pattern)); }},
    {Meta::CreateRegion, [](Canvas &c, ByteReader &) { add(c, {}); }},
    {Meta::SelectObject,
     [](Canvas &c, ByteReader &r) {
         if (const auto found = c.objects.find(r.read<quint16>()); found != c.objects.end())
             c.select(found->second);
     }},
    {Meta::DeleteObject, [](Canvas &c, ByteReader &r) { c.objects.erase(r.read<quint16>()); }},
    {Meta::MoveTo, [](Canvas &c, ByteReader &r) { c.state.position = reversedPoint(r); }},
    {Meta::LineTo, [](Canvas &c, ByteReader &r) { c.lineTo(reversedPoint(r)); }},
    {Meta::Polyline, [](Canvas &c, ByteReader &r) { c.polyline(points(r, r.read<quint16>())); }},
    {Meta::Polygon, [](Canvas &c, ByteReader &r) { c.polygons({points(r, r.read<quint16>())}); }},
    {Meta::PolyPolygon, polyPolygon},
    {Meta::Rectangle, [](Canvas &c, ByteReader &r) { c.rectangle(reversedRect(r)); }},
    {Meta::Ellipse, [](Canvas &c, ByteReader &r) { c.ellipse(reversedRect(r)); }},
    {Meta::RoundRect,
     [](Canvas &c, ByteReader &r) {
         const QPointF corner = reversedPoint(r);
         c.rectangle(reversedRect(r), QSizeF(corner.x(), corner.y()));
     }},
    {Meta::Arc, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Open); }},
    {Meta::Pie, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Pie); }},
    {Meta::Chord, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Chord); }},
    {Meta::TextOut, textOut},
    {Meta::ExtTextOut, extTextOut},
    {Meta::IntersectClipRect, [](Canvas &c, ByteReader &r) { c.clip(reversedRect(r)); }},
    {Meta::PatBlt,
     [](Canvas &c, ByteReader &r) {
         const auto operation = RasterOperation(r.read<quint32>());
         c.fill(area(r), operation);
     }},
    {Meta::DibBitBlt, bitBlt},
    {Meta::DibStretchBlt, [](Canvas &c, ByteReader &r) { bitmap(c, r, false); }},
    {Meta::StretchDib, [](Canvas &c, ByteReader &r) { bitmap(c, r, true); }},
};

} // namespace

std::span<const MetafileRecord<Meta>> wmfRecords()
{
    return records;
}

} // namespace obelmark
