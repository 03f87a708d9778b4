// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/EmfRecords.h"

#include "pictures/metafiles/EmfReading.h"

namespace obelmark {

namespace {

using namespace emf;
using Canvas = MetafileCanvas;

/// The offsets of texts and bitmaps count from the start of the record.
QByteArrayView part(const ByteReader &record, quint32 offset, quint32 size)
{
    ByteReader reader = record;
    reader.seek(qint64(offset) - emfRecordHeader);
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
                RasterOperation operation)
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
    const auto operation = RasterOperation(reader.read<quint32>());
    const QPointF size = point(reader);
    drawBitmap(canvas, bitmap, QRectF(target, QSizeF(size.x(), size.y())), source, operation);
}

void setDIBitsToDevice(Canvas &canvas, ByteReader &reader)
{
    reader.skip(16);
    const QPointF target = point(reader);
    const QRectF source = area(reader);
    drawBitmap(canvas, reader, QRectF(target, source.size()), source, RasterOperation::SourceCopy);
}

/// BitBlt and, with a size in the source, StretchBlt; without a bitmap they fill.
void blt(Canvas &canvas, ByteReader &reader, bool stretches)
{
    reader.skip(16);
    const QRectF target = area(reader);
    const auto operation = RasterOperation(reader.read<quint32>());
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

constexpr MetafileRecord<Emr> records[] = {
    {Emr::ExtTextOutA, extTextOut<1>},
    {Emr::ExtTextOutW, extTextOut<2>},
    {Emr::BitBlt, [](Canvas &c, ByteReader &r) { blt(c, r, false); }},
    {Emr::StretchBlt, [](Canvas &c, ByteReader &r) { blt(c, r, true); }},
    {Emr::SetDIBitsToDevice, setDIBitsToDevice},
    {Emr::StretchDIBits, stretchDIBits},
};

} // namespace

std::span<const MetafileRecord<Emr>> emfImages()
{
    return records;
}

} // namespace obelmark
