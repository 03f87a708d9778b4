// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/EmfRecords.h"

#include "pictures/metafiles/EmfReading.h"

namespace obelmark {

namespace {

using namespace emf;
using Canvas = MetafileCanvas;

QTransform matrix(ByteReader &reader)
{
    float m[6];
    for (float &number : m)
        number = reader.read<float>();
    return QTransform(m[0], m[1], m[2], m[3], m[4], m[5]);
}

void modifyWorld(Canvas &canvas, ByteReader &reader)
{
    const QTransform change = matrix(reader);
    enum { Identity = 1, LeftMultiply, RightMultiply, Set };
    switch (reader.read<quint32>()) {
    case Identity:
        canvas.state.world = {};
        break;
    case LeftMultiply:
        canvas.state.world = change * canvas.state.world;
        break;
    case RightMultiply:
        canvas.state.world *= change;
        break;
    case Set:
        canvas.state.world = change;
        break;
    default:
        break;
    }
}

/// The objects that every device has.
MetafileObject stockObject(quint32 number)
{
    constexpr quint32 greys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    enum { NullBrush = 5, WhitePen, BlackPen, NullPen, FirstFont = 10, LastFont = 17 };
    if (number < NullBrush)
        return QBrush(metafileColor(greys[number]));
    if (number == NullBrush)
        return QBrush(Qt::NoBrush);
    if (number == NullPen)
        return QPen(Qt::NoPen);
    if (number == WhitePen || number == BlackPen)
        return QPen(number == WhitePen ? Qt::white : Qt::black);
    if (number >= FirstFont && number <= LastFont)
        return MetafileFont();
    return {};
}

void selectObject(Canvas &canvas, ByteReader &reader)
{
    constexpr quint32 stock = 0x80000000;
    const auto number = reader.read<quint32>();
    if (number & stock)
        canvas.select(stockObject(number & ~stock));
    else if (const auto found = canvas.objects.find(number); found != canvas.objects.end())
        canvas.select(found->second);
}

void createPen(Canvas &canvas, ByteReader &reader)
{
    const auto number = reader.read<quint32>(), style = reader.read<quint32>();
    const QPointF width = point(reader);
    canvas.objects[number] = metafilePen(style, width.x(), reader.read<quint32>());
}

void extCreatePen(Canvas &canvas, ByteReader &reader)
{
    const auto number = reader.read<quint32>();
    reader.skip(16);
    const auto style = reader.read<quint32>(), width = reader.read<quint32>();
    reader.skip(4);
    canvas.objects[number] = metafilePen(style, width, reader.read<quint32>());
}

void createBrush(Canvas &canvas, ByteReader &reader)
{
    const auto number = reader.read<quint32>(), style = reader.read<quint32>(),
               color = reader.read<quint32>();
    canvas.objects[number] = metafileBrush(style, color, reader.read<quint32>());
}

void createPatternBrush(Canvas &canvas, ByteReader &reader)
{
    canvas.objects[reader.read<quint32>()] = QBrush(Qt::Dense4Pattern);
}

void createFont(Canvas &canvas, ByteReader &reader)
{
    const auto number = reader.read<quint32>();
    const auto height = reader.read<qint32>();
    reader.skip(4);
    const auto angle = reader.read<qint32>();
    reader.skip(4);
    const auto weight = reader.read<qint32>();
    const bool italic = reader.read<quint8>(), underline = reader.read<quint8>(),
               strikeOut = reader.read<quint8>();
    reader.skip(5);
    canvas.objects[number] =
        metafileFont(height, angle, weight, italic, underline, strikeOut, utf16Text(reader.take(64)));
}

constexpr MetafileRecord<Emr> records[] = {
    {Emr::SaveDC, [](Canvas &c, ByteReader &) { c.save(); }},
    {Emr::RestoreDC, [](Canvas &c, ByteReader &r) { c.restore(r.read<qint32>()); }},
    {Emr::SetWindowExtEx, [](Canvas &c, ByteReader &r) { c.state.windowExtent = point(r); }},
    {Emr::SetWindowOrgEx, [](Canvas &c, ByteReader &r) { c.state.windowOrigin = point(r); }},
    {Emr::SetViewportExtEx, [](Canvas &c, ByteReader &r) { c.state.viewportExtent = point(r); }},
    {Emr::SetViewportOrgEx, [](Canvas &c, ByteReader &r) { c.state.viewportOrigin = point(r); }},
    {Emr::SetMapMode,
     [](Canvas &c, ByteReader &r) { c.state.mapMode = MapMode(qBound(1U, r.read<quint32>(), 8U)); }},
    {Emr::SetWorldTransform, [](Canvas &c, ByteReader &r) { c.state.world = matrix(r); }},
    {Emr::ModifyWorldTransform, modifyWorld},
    {Emr::IntersectClipRect, [](Canvas &c, ByteReader &r) { c.clip(rect(r)); }},
    {Emr::SetBkMode, [](Canvas &c, ByteReader &r) { c.state.setBackgroundMode(r.read<quint32>()); }},
    {Emr::SetPolyFillMode, [](Canvas &c, ByteReader &r) { c.state.setFillMode(r.read<quint32>()); }},
    {Emr::SetTextAlign, [](Canvas &c, ByteReader &r) { c.state.align = r.read<quint32>(); }},
    {Emr::SetTextColor,
     [](Canvas &c, ByteReader &r) { c.state.textColor = metafileColor(r.read<quint32>()); }},
    {Emr::SetBkColor,
     [](Canvas &c, ByteReader &r) { c.state.background = metafileColor(r.read<quint32>()); }},
    {Emr::SelectObject, selectObject},
    {Emr::CreatePen, createPen},
    {Emr::ExtCreatePen, extCreatePen},
    {Emr::CreateBrushIndirect, createBrush},
    {Emr::CreateMonoBrush, createPatternBrush},
    {Emr::CreateDIBPatternBrushPt, createPatternBrush},
    {Emr::ExtCreateFontIndirectW, createFont},
    {Emr::DeleteObject, [](Canvas &c, ByteReader &r) { c.objects.erase(r.read<quint32>()); }},
};

} // namespace

std::span<const MetafileRecord<Emr>> emfSettings()
{
    return records;
}

} // namespace obelmark
