// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/EmfRecords.h"

#include "pictures/metafiles/EmfReading.h"

namespace obelmark {

namespace {

using namespace emf;
using Canvas = MetafileCanvas;

template<class Number>
Canvas::Points points(ByteReader &reader, quint32 count)
{
    Canvas::Points list;
    for (quint32 i = 0; i < count; ++i)
        list.push_back(point<Number>(reader));
    return list;
}

/// The points of a record after its bounds.
template<class Number>
Canvas::Points boundedPoints(ByteReader &reader)
{
    reader.skip(16);
    const auto count = reader.read<quint32>();
    return points<Number>(reader, count);
}

template<class Number>
std::vector<Canvas::Points> manyPoints(ByteReader &reader)
{
    reader.skip(16);
    const auto groups = reader.read<quint32>();
    reader.skip(4);
    std::vector<quint32> counts;
    for (quint32 i = 0; i < groups; ++i)
        counts.push_back(reader.read<quint32>());
    std::vector<Canvas::Points> all;
    for (const quint32 count : counts)
        all.push_back(points<Number>(reader, count));
    return all;
}

template<class Number>
void polyBezier(Canvas &canvas, ByteReader &reader)
{
    canvas.beziers(boundedPoints<Number>(reader), false);
}
template<class Number>
void polyBezierTo(Canvas &canvas, ByteReader &reader)
{
    canvas.beziers(boundedPoints<Number>(reader), true);
}
template<class Number>
void polygon(Canvas &canvas, ByteReader &reader)
{
    canvas.polygons({boundedPoints<Number>(reader)});
}
template<class Number>
void polyline(Canvas &canvas, ByteReader &reader)
{
    canvas.polyline(boundedPoints<Number>(reader));
}
template<class Number>
void polylineTo(Canvas &canvas, ByteReader &reader)
{
    for (const QPointF &next : boundedPoints<Number>(reader))
        canvas.lineTo(next);
}
template<class Number>
void polyPolyline(Canvas &canvas, ByteReader &reader)
{
    for (const Canvas::Points &line : manyPoints<Number>(reader))
        canvas.polyline(line);
}
template<class Number>
void polyPolygon(Canvas &canvas, ByteReader &reader)
{
    canvas.polygons(manyPoints<Number>(reader));
}

void roundRect(Canvas &canvas, ByteReader &reader)
{
    const QRectF bounds = rect(reader);
    const QPointF corner = point(reader);
    canvas.rectangle(bounds, QSizeF(corner.x(), corner.y()));
}

void arc(Canvas &canvas, ByteReader &reader, Canvas::Arc kind, bool moves = false)
{
    const QRectF bounds = rect(reader);
    const QPointF from = point(reader), to = point(reader);
    canvas.arc(bounds, from, to, kind, moves);
}

constexpr MetafileRecord<Emr> records[] = {
    {Emr::PolyBezier, polyBezier<qint32>},
    {Emr::Polygon, polygon<qint32>},
    {Emr::Polyline, polyline<qint32>},
    {Emr::PolyBezierTo, polyBezierTo<qint32>},
    {Emr::PolylineTo, polylineTo<qint32>},
    {Emr::PolyPolyline, polyPolyline<qint32>},
    {Emr::PolyPolygon, polyPolygon<qint32>},
    {Emr::PolyBezier16, polyBezier<qint16>},
    {Emr::Polygon16, polygon<qint16>},
    {Emr::Polyline16, polyline<qint16>},
    {Emr::PolyBezierTo16, polyBezierTo<qint16>},
    {Emr::PolylineTo16, polylineTo<qint16>},
    {Emr::PolyPolyline16, polyPolyline<qint16>},
    {Emr::PolyPolygon16, polyPolygon<qint16>},
    {Emr::MoveToEx, [](Canvas &c, ByteReader &r) { c.state.position = point(r); }},
    {Emr::LineTo, [](Canvas &c, ByteReader &r) { c.lineTo(point(r)); }},
    {Emr::Ellipse, [](Canvas &c, ByteReader &r) { c.ellipse(rect(r)); }},
    {Emr::Rectangle, [](Canvas &c, ByteReader &r) { c.rectangle(rect(r)); }},
    {Emr::RoundRect, roundRect},
    {Emr::Arc, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Open); }},
    {Emr::Chord, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Chord); }},
    {Emr::Pie, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Pie); }},
    {Emr::ArcTo, [](Canvas &c, ByteReader &r) { arc(c, r, Canvas::Arc::Open, true); }},
    {Emr::BeginPath, [](Canvas &c, ByteReader &) { c.beginPath(); }},
    {Emr::EndPath, [](Canvas &c, ByteReader &) { c.endPath(); }},
    {Emr::CloseFigure, [](Canvas &c, ByteReader &) { c.closeFigure(); }},
    {Emr::FillPath, [](Canvas &c, ByteReader &) { c.drawPath(true, false); }},
    {Emr::StrokeAndFillPath, [](Canvas &c, ByteReader &) { c.drawPath(true, true); }},
    {Emr::StrokePath, [](Canvas &c, ByteReader &) { c.drawPath(false, true); }},
    {Emr::SelectClipPath, [](Canvas &c, ByteReader &) { c.clipToPath(); }},
};

} // namespace

std::span<const MetafileRecord<Emr>> emfFigures()
{
    return records;
}

} // namespace obelmark
