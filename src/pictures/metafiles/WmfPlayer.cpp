// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/Metafile.h"
#include "pictures/metafiles/WmfReading.h"
#include "pictures/metafiles/WmfRecords.h"

namespace obelmark {

using namespace wmf;

namespace {

/// Calls \a play with every record until the end. \throws ByteReader::End when the end is not in the file
template<class Play>
void forEachRecord(ByteReader reader, const Play &play)
{
    for (;;) {
        const qint64 words = reader.read<quint32>();
        const auto type = Meta(reader.read<quint16>());
        if (type == Meta::Eof)
            return;
        ByteReader contents(reader.take(words * 2 - 6));
        play(type, contents);
    }
}

/// What the picture shows of its own plane: the frame of a placeable file, else its first window.
QRectF frameOf(ByteReader &reader, QByteArrayView bytes)
{
    constexpr quint32 placeable = 0x9AC6CDD7;
    constexpr int placeableHeader = 22, header = 18;
    if (reader.read<quint32>() == placeable) {
        reader.skip(2);
        const auto [left, top, right, bottom] = shorts<4>(reader);
        reader.seek(placeableHeader + header);
        return QRectF(QPointF(left, top), QPointF(right, bottom));
    }
    reader.seek(header);
    QPointF origin, extent;
    forEachRecord(ByteReader(bytes, header), [&](Meta type, ByteReader &contents) {
        if (type == Meta::SetWindowOrg && extent.isNull())
            origin = reversedPoint(contents);
        else if (type == Meta::SetWindowExt && extent.isNull())
            extent = reversedPoint(contents);
    });
    return QRectF(origin, origin + extent);
}

} // namespace

QImage drawWmf(const QByteArray &bytes, QSize box)
{
    try {
        ByteReader reader(bytes);
        const QRectF frame = frameOf(reader, bytes);
        const QSize pixels =
            QSizeF(qAbs(frame.width()), qAbs(frame.height())).scaled(box, Qt::KeepAspectRatio).toSize();
        if (frame.width() == 0 || frame.height() == 0 || pixels.isEmpty())
            return {};
        MetafileCanvas canvas(pixels, {}, {});
        canvas.state.mapMode = MapMode::Anisotropic;
        canvas.state.windowOrigin = frame.topLeft();
        canvas.state.windowExtent = {frame.width(), frame.height()};
        canvas.state.viewportExtent = QPointF(pixels.width(), pixels.height());
        forEachRecord(reader, [&](Meta type, ByteReader &contents) {
            playRecord(wmfRecords(), type, canvas, contents);
        });
        return canvas.isOutOfTime() ? QImage() : canvas.finish();
    } catch (const ByteReader::End &) {
        return {};
    }
}

} // namespace obelmark
