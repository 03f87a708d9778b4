#include "pictures/EmfPlayer.h"

#include "pictures/ByteReader.h"
#include "pictures/MetafileCanvas.h"
#include <algorithm>

namespace obelmark {

namespace {

using Canvas = MetafileCanvas;

/// The numbers of points and rectangles of a record, four bytes each, or two in the short forms.
template<class Number>
QPointF point(ByteReader &reader)
{
    const double x = reader.read<Number>();
    return QPointF(x, reader.read<Number>());
}

QPointF point(ByteReader &reader)
{
    return point<qint32>(reader);
}

QRectF rect(ByteReader &reader)
{
    const QPointF topLeft = point(reader);
    return QRectF(topLeft, point(reader)).normalized();
}

/// "x, y, width, height".
QRectF area(ByteReader &reader)
{
    const QPointF topLeft = point(reader), size = point(reader);
    return QRectF(topLeft, QSizeF(size.x(), size.y()));
}

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
    switch (reader.read<quint32>()) {
    case 1:
        canvas.state.world = {};
        break;
    case 2:
        canvas.state.world = change * canvas.state.world;
        break;
    case 3:
        canvas.state.world *= change;
        break;
    case 4:
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
        return metafileBrush(0, greys[number], 0);
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

QString utf16Text(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), size_t(text.size()) * 2);
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
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

constexpr int recordHeader = 8;

/// The offsets of texts and bitmaps count from the start of the record.
QByteArrayView part(const ByteReader &record, quint32 offset, quint32 size)
{
    ByteReader reader = record;
    reader.seek(qint64(offset) - recordHeader);
    return reader.take(size);
}

template<int BytesPerLetter>
void extTextOut(Canvas &canvas, ByteReader &reader)
{
    reader.skip(28);
    const QPointF place = point(reader);
    const auto length = reader.read<quint32>(), offset = reader.read<quint32>();
    if (length > quint32(reader.position() + reader.left()))
        throw ByteReader::End();
    const QByteArrayView letters = part(reader, offset, length * BytesPerLetter);
    canvas.text(place, BytesPerLetter == 1 ? QString::fromLatin1(letters) : utf16Text(letters));
}

void drawBitmap(Canvas &canvas, ByteReader &reader, const QRectF &target, const QRectF &source,
                quint32 operation)
{
    const auto header = reader.read<quint32>(), headerSize = reader.read<quint32>(),
               bits = reader.read<quint32>(), bitsSize = reader.read<quint32>();
    QByteArray bitmap = part(reader, header, headerSize).toByteArray();
    bitmap += part(reader, bits, bitsSize);
    canvas.bitmap(target, bitmap, source, operation);
}

void stretchDIBits(Canvas &canvas, ByteReader &reader)
{
    reader.skip(16);
    const QPointF target = point(reader);
    const QRectF source = area(reader);
    ByteReader bitmap = reader;
    reader.skip(20);
    const auto operation = reader.read<quint32>();
    const QPointF size = point(reader);
    drawBitmap(canvas, bitmap, QRectF(target, QSizeF(size.x(), size.y())), source, operation);
}

void setDIBitsToDevice(Canvas &canvas, ByteReader &reader)
{
    constexpr quint32 sourceCopy = 0x00CC0020;
    reader.skip(16);
    const QPointF target = point(reader);
    const QRectF source = area(reader);
    drawBitmap(canvas, reader, QRectF(target, source.size()), source, sourceCopy);
}

/// BitBlt and, with a size in the source, StretchBlt; without a bitmap they fill.
void blt(Canvas &canvas, ByteReader &reader, bool stretches)
{
    reader.skip(16);
    const QRectF target = area(reader);
    const auto operation = reader.read<quint32>();
    const QPointF source = point(reader);
    reader.skip(32);
    ByteReader bitmap = reader;
    reader.skip(4);
    if (reader.read<quint32>() == 0) {
        canvas.fill(target, operation);
        return;
    }
    reader.skip(8);
    const QPointF size = stretches ? point(reader) : QPointF(target.width(), target.height());
    drawBitmap(canvas, bitmap, target, QRectF(source, QSizeF(size.x(), size.y())), operation);
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

struct Record
{
    quint32 type;
    void (*play)(Canvas &canvas, ByteReader &reader);
};

using Reader = ByteReader;

constexpr quint32 endOfFile = 14;

constexpr Record records[] = {
    {2, polyBezier<qint32>},
    {3, polygon<qint32>},
    {4, polyline<qint32>},
    {5, polyBezierTo<qint32>},
    {6, polylineTo<qint32>},
    {7, polyPolyline<qint32>},
    {8, polyPolygon<qint32>},
    {85, polyBezier<qint16>},
    {86, polygon<qint16>},
    {87, polyline<qint16>},
    {88, polyBezierTo<qint16>},
    {89, polylineTo<qint16>},
    {90, polyPolyline<qint16>},
    {91, polyPolygon<qint16>},
    {9, [](Canvas &c, Reader &r) { c.state.windowExtent = point(r); }},
    {10, [](Canvas &c, Reader &r) { c.state.windowOrigin = point(r); }},
    {11, [](Canvas &c, Reader &r) { c.state.viewportExtent = point(r); }},
    {12, [](Canvas &c, Reader &r) { c.state.viewportOrigin = point(r); }},
    {17, [](Canvas &c, Reader &r) { c.state.mapMode = int(qBound(1U, r.read<quint32>(), 8U)); }},
    {18, [](Canvas &c, Reader &r) { c.state.opaque = r.read<quint32>() == 2; }},
    {19, [](Canvas &c,
            Reader &r) { c.state.fillRule = r.read<quint32>() == 2 ? Qt::WindingFill : Qt::OddEvenFill; }},
    {22, [](Canvas &c, Reader &r) { c.state.align = r.read<quint32>(); }},
    {24, [](Canvas &c, Reader &r) { c.state.textColor = metafileColor(r.read<quint32>()); }},
    {25, [](Canvas &c, Reader &r) { c.state.background = metafileColor(r.read<quint32>()); }},
    {27, [](Canvas &c, Reader &r) { c.state.position = point(r); }},
    {30, [](Canvas &c, Reader &r) { c.clip(rect(r)); }},
    {33, [](Canvas &c, Reader &) { c.save(); }},
    {34, [](Canvas &c, Reader &r) { c.restore(r.read<qint32>()); }},
    {35, [](Canvas &c, Reader &r) { c.state.world = matrix(r); }},
    {36, modifyWorld},
    {37, selectObject},
    {38, createPen},
    {39, createBrush},
    {40, [](Canvas &c, Reader &r) { c.objects.erase(r.read<quint32>()); }},
    {42, [](Canvas &c, Reader &r) { c.ellipse(rect(r)); }},
    {43, [](Canvas &c, Reader &r) { c.rectangle(rect(r)); }},
    {44, roundRect},
    {45, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Open); }},
    {46, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Chord); }},
    {47, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Pie); }},
    {54, [](Canvas &c, Reader &r) { c.lineTo(point(r)); }},
    {55, [](Canvas &c, Reader &r) { arc(c, r, Canvas::Arc::Open, true); }},
    {59, [](Canvas &c, Reader &) { c.beginPath(); }},
    {60, [](Canvas &c, Reader &) { c.endPath(); }},
    {61, [](Canvas &c, Reader &) { c.closeFigure(); }},
    {62, [](Canvas &c, Reader &) { c.drawPath(true, false); }},
    {63, [](Canvas &c, Reader &) { c.drawPath(true, true); }},
    {64, [](Canvas &c, Reader &) { c.drawPath(false, true); }},
    {67, [](Canvas &c, Reader &) { c.clipToPath(); }},
    {76, [](Canvas &c, Reader &r) { blt(c, r, false); }},
    {77, [](Canvas &c, Reader &r) { blt(c, r, true); }},
    {80, setDIBitsToDevice},
    {81, stretchDIBits},
    {82, createFont},
    {83, extTextOut<1>},
    {84, extTextOut<2>},
    {93, createPatternBrush},
    {94, createPatternBrush},
    {95, extCreatePen},
};

/// What the header says: the frame of the picture in 0.01 mm, and the device that it was made for.
struct Header
{
    QRectF frame;
    QPointF devicePixels;
    QPointF deviceMm;
};

Header readHeader(ByteReader reader)
{
    Header header;
    reader.skip(recordHeader + 16);
    const QPointF topLeft = point(reader);
    header.frame = QRectF(topLeft, point(reader)).normalized();
    reader.skip(32);
    header.devicePixels = point(reader);
    header.deviceMm = point(reader);
    return header;
}

} // namespace

QImage drawEmf(const QByteArray &bytes, QSize box)
{
    ByteReader reader(bytes);
    const Header header = readHeader(reader);
    const QRectF &frame = header.frame;
    const QSize pixels = frame.size().scaled(box, Qt::KeepAspectRatio).toSize();
    const QPointF unitsPerMm(header.devicePixels.x() / header.deviceMm.x(),
                             header.devicePixels.y() / header.deviceMm.y());
    if (pixels.isEmpty() || !(unitsPerMm.x() > 0 && unitsPerMm.y() > 0))
        return {};
    constexpr double frameUnits = 100; // to a millimetre
    QTransform device;
    device.scale(pixels.width() / frame.width(), pixels.height() / frame.height());
    device.translate(-frame.x(), -frame.y());
    device.scale(frameUnits / unitsPerMm.x(), frameUnits / unitsPerMm.y());

    MetafileCanvas canvas(pixels, device, unitsPerMm);
    for (;;) {
        const auto type = reader.read<quint32>();
        const qint64 size = reader.read<quint32>();
        if (type == endOfFile)
            break;
        ByteReader contents(reader.take(size - recordHeader));
        const auto *record = std::ranges::find(records, type, &Record::type);
        if (record == std::end(records) || canvas.isOutOfTime())
            continue;
        try {
            record->play(canvas, contents);
        } catch (const ByteReader::End &) { // a record that is shorter than it says has no effect
        }
    }
    return canvas.isOutOfTime() ? QImage() : canvas.finish();
}

} // namespace obelmark
