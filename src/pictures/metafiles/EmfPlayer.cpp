// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/EmfReading.h"
#include "pictures/metafiles/EmfRecords.h"
#include "pictures/metafiles/Metafile.h"

namespace obelmark {

using namespace emf;

namespace {

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
    reader.skip(emfRecordHeader + 16);
    const QPointF topLeft = point(reader);
    header.frame = QRectF(topLeft, point(reader)).normalized();
    reader.skip(32);
    header.devicePixels = point(reader);
    header.deviceMm = point(reader);
    return header;
}

/// From the units of the device that the picture was made for to the pixels of ours.
QTransform toPixels(const QRectF &frame, QPointF unitsPerMm, QSize pixels)
{
    constexpr double frameUnits = 100; // to a millimetre
    QTransform device;
    device.scale(pixels.width() / frame.width(), pixels.height() / frame.height());
    device.translate(-frame.x(), -frame.y());
    device.scale(frameUnits / unitsPerMm.x(), frameUnits / unitsPerMm.y());
    return device;
}

/// \throws ByteReader::End when the end is not in the file
void playRecords(ByteReader reader, MetafileCanvas &canvas)
{
    for (;;) {
        const auto type = Emr(reader.read<quint32>());
        const qint64 size = reader.read<quint32>();
        if (type == Emr::Eof)
            return;
        const ByteReader contents(reader.take(size - emfRecordHeader));
        for (const auto records : {emfFigures(), emfImages(), emfSettings()})
            playRecord(records, type, canvas, contents);
    }
}

} // namespace

QImage drawEmf(const QByteArray &bytes, QSize box)
{
    try {
        const ByteReader reader(bytes);
        const Header header = readHeader(reader);
        const QSize pixels = header.frame.size().scaled(box, Qt::KeepAspectRatio).toSize();
        const QPointF unitsPerMm(header.devicePixels.x() / header.deviceMm.x(),
                                 header.devicePixels.y() / header.deviceMm.y());
        if (pixels.isEmpty() || !(unitsPerMm.x() > 0 && unitsPerMm.y() > 0))
            return {};
        MetafileCanvas canvas(pixels, toPixels(header.frame, unitsPerMm, pixels), unitsPerMm);
        playRecords(reader, canvas);
        return canvas.isOutOfTime() ? QImage() : canvas.finish();
    } catch (const ByteReader::End &) {
        return {};
    }
}

} // namespace obelmark
