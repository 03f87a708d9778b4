#include "pictures/WmfPlayer.h"

#include "pictures/ByteReader.h"
#include "pictures/MetafileCanvas.h"
#include <algorithm>
#include <array>

namespace obelmark {

namespace {

constexpr quint16 endOfFile = 0x0000, setWindowOrigin = 0x020B, setWindowExtent = 0x020C;

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
QPointF reversedPoint(ByteReader &reader)
{
    const auto [y, x] = shorts<2>(reader);
    return QPointF(x, y);
}

/// "bottom, right, top, left".
QRectF reversedRect(ByteReader &reader)
{
    const auto [bottom, right, top, left] = shorts<4>(reader);
    return QRectF(QPointF(left, top), QPointF(right, bottom)).normalized();
}

MetafileCanvas::Points points(ByteReader &reader, int count)
{
    MetafileCanvas::Points list;
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
void add(MetafileCanvas &canvas, const MetafileObject &object)
{
    quint32 number = 0;
    for (const auto &[taken, other] : canvas.objects) {
        if (taken != number)
            break;
        ++number;
    }
    canvas.objects[number] = object;
}

void createPen(MetafileCanvas &canvas, ByteReader &reader)
{
    const auto style = reader.read<quint16>();
    const auto [width, unused] = shorts<2>(reader);
    add(canvas, metafilePen(style, width, reader.read<quint32>()));
}

void createBrush(MetafileCanvas &canvas, ByteReader &reader)
{
    const auto style = reader.read<quint16>();
    const auto color = reader.read<quint32>();
    add(canvas, metafileBrush(style, color, reader.read<quint16>()));
}

void createFont(MetafileCanvas &canvas, ByteReader &reader)
{
    const auto [height, width, angle, orientation, weight] = shorts<5>(reader);
    const bool italic = reader.read<quint8>(), underline = reader.read<quint8>(),
               strikeOut = reader.read<quint8>();
    reader.skip(5);
    const QByteArrayView family = reader.take(std::min<qsizetype>(32, reader.left()));
    add(canvas, metafileFont(height, angle, weight, italic, underline, strikeOut, latinText(family)));
}

void polyPolygon(MetafileCanvas &canvas, ByteReader &reader)
{
    std::vector<int> counts(reader.read<quint16>());
    for (int &count : counts)
        count = reader.read<quint16>();
    std::vector<MetafileCanvas::Points> polygons;
    for (const int count : counts)
        polygons.push_back(points(reader, count));
    canvas.polygons(polygons);
}

void textOut(MetafileCanvas &canvas, ByteReader &reader)
{
    const int length = reader.read<qint16>();
    const QString text = QString::fromLatin1(reader.take(length));
    reader.skip(length % 2);
    canvas.text(reversedPoint(reader), text);
}

void extTextOut(MetafileCanvas &canvas, ByteReader &reader)
{
    constexpr int opaque = 2, clipped = 4;
    const QPointF place = reversedPoint(reader);
    const int length = reader.read<qint16>();
    if (reader.read<quint16>() & (opaque | clipped))
        reader.skip(8);
    canvas.text(place, QString::fromLatin1(reader.take(length)));
}

void arc(MetafileCanvas &canvas, ByteReader &reader, MetafileCanvas::Arc kind)
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

void bitmap(MetafileCanvas &canvas, ByteReader &reader, bool hasUsage)
{
    const auto operation = reader.read<quint32>();
    if (hasUsage)
        reader.skip(2);
    const QRectF source = area(reader), target = area(reader);
    canvas.bitmap(target, reader.take(reader.left()).toByteArray(), source, operation);
}

/// Without a size of its own in the source.
void bitBlt(MetafileCanvas &canvas, ByteReader &reader)
{
    const auto operation = reader.read<quint32>();
    const QPointF source = reversedPoint(reader);
    const QRectF target = area(reader);
    canvas.bitmap(target, reader.take(reader.left()).toByteArray(), {source, target.size()}, operation);
}

struct Record
{
    quint16 function;
    void (*play)(MetafileCanvas &canvas, ByteReader &reader);
};

using Canvas = MetafileCanvas;
using Reader = ByteReader;

constexpr Record records[] = {
    {0x001E, [](Canvas &c, Reader &) { c.save(); }},
    {0x0127, [](Canvas &c, Reader &r) { c.restore(r.read<qint16>()); }},
    {0x0102, [](Canvas &c, Reader &r) { c.state.opaque = r.read<quint16>() == 2; }},
    {0x0201, [](Canvas &c, Reader &r) { c.state.background = metafileColor(r.read<quint32>()); }},
    {0x0209, [](Canvas &c, Reader &r) { c.state.textColor = metafileColor(r.read<quint32>()); }},
    {0x012E, [](Canvas &c, Reader &r) { c.state.align = r.read<quint16>(); }},
    {0x0106,
     [](Canvas &c, Reader &r) {
         c.state.fillRule = r.read<quint16>() == 2 ? Qt::WindingFill : Qt::OddEvenFill;
     }},
    {setWindowOrigin, [](Canvas &c, Reader &r) { c.state.windowOrigin = reversedPoint(r); }},
    {setWindowExtent, [](Canvas &c, Reader &r) { c.state.windowExtent = reversedPoint(r); }},
    {0x020F, [](Canvas &c, Reader &r) { c.state.windowOrigin += reversedPoint(r); }},
    {0x02FA, createPen},
    {0x02FC, createBrush},
    {0x02FB, createFont},
    {0x00F7, [](Canvas &c, Reader &) { add(c, {}); }}, // palette
    {0x01F9, [](Canvas &c, Reader &) { add(c, QBrush(Qt::Dense4Pattern)); }},
    {0x0142, [](Canvas &c, Reader &) { add(c, QBrush(Qt::Dense4Pattern)); }},
    {0x06FF, [](Canvas &c, Reader &) { add(c, {}); }}, // region
    {0x012D,
     [](Canvas &c, Reader &r) {
         if (const auto found = c.objects.find(r.read<quint16>()); found != c.objects.end())
             c.select(found->second);
     }},
    {0x01F0, [](Canvas &c, Reader &r) { c.objects.erase(r.read<quint16>()); }},
    {0x0214, [](Canvas &c, Reader &r) { c.state.position = reversedPoint(r); }},
    {0x0213, [](Canvas &c, Reader &r) { c.lineTo(reversedPoint(r)); }},
    {0x0325, [](Canvas &c, Reader &r) { c.polyline(points(r, r.read<quint16>())); }},
    {0x0324, [](Canvas &c, Reader &r) { c.polygons({points(r, r.read<quint16>())}); }},
    {0x0538, polyPolygon},
    {0x041B, [](Canvas &c, Reader &r) { c.rectangle(reversedRect(r)); }},
    {0x0418, [](Canvas &c, Reader &r) { c.ellipse(reversedRect(r)); }},
    {0x061C,
     [](Canvas &c, Reader &r) {
         const QPointF corner = reversedPoint(r);
         c.rectangle(reversedRect(r), QSizeF(corner.x(), corner.y()));
     }},
    {0x0817, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Open); }},
    {0x081A, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Pie); }},
    {0x0830, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Chord); }},
    {0x0521, textOut},
    {0x0A32, extTextOut},
    {0x0416, [](Canvas &c, Reader &r) { c.clip(reversedRect(r)); }},
    {0x061D,
     [](Canvas &c, Reader &r) {
         const auto operation = r.read<quint32>();
         c.fill(area(r), operation);
     }},
    {0x0940, bitBlt},
    {0x0B41, [](Canvas &c, Reader &r) { bitmap(c, r, false); }},
    {0x0F43, [](Canvas &c, Reader &r) { bitmap(c, r, true); }},
};

/// Calls \a play with every record until the end. \throws ByteReader::End when the end is not in the file
template<class Play>
void forEachRecord(ByteReader reader, const Play &play)
{
    for (;;) {
        const qint64 words = reader.read<quint32>();
        const auto function = reader.read<quint16>();
        if (function == endOfFile)
            return;
        ByteReader contents(reader.take(words * 2 - 6));
        play(function, contents);
    }
}

/// What the picture shows of its own plane: the frame of a placeable file, else its first window.
QRectF frameOf(ByteReader &reader, QByteArrayView bytes)
{
    constexpr quint32 placeable = 0x9AC6CDD7;
    constexpr int placeableHeader = 22, header = 18;
    QRectF frame;
    if (reader.read<quint32>() == placeable) {
        reader.skip(2);
        const auto [left, top, right, bottom] = shorts<4>(reader);
        frame = QRectF(QPointF(left, top), QPointF(right, bottom));
        reader.seek(placeableHeader + header);
        return frame;
    }
    reader.seek(header);
    QPointF origin, extent;
    forEachRecord(ByteReader(bytes, header), [&](quint16 function, ByteReader &contents) {
        if (function == setWindowOrigin && extent.isNull())
            origin = reversedPoint(contents);
        else if (function == setWindowExtent && extent.isNull())
            extent = reversedPoint(contents);
    });
    return QRectF(origin, origin + extent);
}

} // namespace

QImage drawWmf(const QByteArray &bytes, QSize box)
{
    ByteReader reader(bytes);
    const QRectF frame = frameOf(reader, bytes);
    const QSize pixels =
        QSizeF(qAbs(frame.width()), qAbs(frame.height())).scaled(box, Qt::KeepAspectRatio).toSize();
    if (frame.width() == 0 || frame.height() == 0 || pixels.isEmpty())
        return {};
    MetafileCanvas canvas(pixels, {}, {});
    canvas.state.mapMode = MetafileCanvas::Anisotropic;
    canvas.state.windowOrigin = frame.topLeft();
    canvas.state.windowExtent = {frame.width(), frame.height()};
    canvas.state.viewportExtent = QPointF(pixels.width(), pixels.height());
    forEachRecord(reader, [&](quint16 function, ByteReader &contents) {
        const auto *record = std::ranges::find(records, function, &Record::function);
        if (record == std::end(records) || canvas.isOutOfTime())
            return;
        try {
            record->play(canvas, contents);
        } catch (const ByteReader::End &) { // a record that is shorter than it says has no effect
        }
    });
    return canvas.isOutOfTime() ? QImage() : canvas.finish();
}

} // namespace obelmark
