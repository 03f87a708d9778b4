// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/MetafileCanvas.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImageIOHandler>
#include <QImageReader>
#include <QLineF>

namespace obelmark {

/// What the bytes do not reach is white, or of the last of the bitmap's colours, which mostly is.
static QImage decodeBitmap(const QByteArray &bitmap)
{
    QBuffer buffer;
    buffer.setData(bitmap);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "dib");
    // The reader fills an image of the right kind that it is given, and leaves its pixels alone where bytes
    // are missing; in one that it makes itself nobody has written there.
    QImage image;
    const QSize size(reader.size().width(), std::abs(reader.size().height())); // negative from the top down
    if (!QImageIOHandler::allocateImage(size, reader.imageFormat(), &image))
        return {};
    image.fill(0xFFFFFFFF);
    if (!reader.read(&image))
        return {};
    // Not every painting looks whether a pixel's number is one of the colours.
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void MetafileCanvas::text(QPointF point, const QString &text)
{
    using enum MetafileState::Align;
    const QTransform transform = toPixels();
    const QPointF place = transform.map(state.align & AtPosition ? state.position : point);
    if (!isNear({place, QSizeF(1, 1)}))
        return;
    const double scale = QLineF(transform.map(QPointF()), transform.map(QPointF(0, 1))).length();
    const double wanted = state.font.height == 0 ? 12 : std::abs(state.font.height) * scale;
    QFont font = state.font.font;
    font.setPixelSize(int(qBound(1.0, state.font.height > 0 ? wanted * 0.85 : wanted, 2000.0)));
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(text);
    const quint32 across = state.align & Centre, down = state.align & BaseLine;
    const double left = across == Centre ? -width / 2 : across == Right ? -width : 0;
    const double base = down == BaseLine ? 0 : down == Bottom ? -metrics.descent() : metrics.ascent();

    applyClip();
    m_painter.save();
    m_painter.translate(place);
    m_painter.rotate(-state.font.angle);
    if (state.opaque)
        m_painter.fillRect(QRectF(left, base - metrics.ascent(), width, metrics.height()), state.background);
    m_painter.setFont(font);
    m_painter.setPen(state.textColor);
    m_painter.drawText(QPointF(left, base), text);
    m_painter.restore();
}

void MetafileCanvas::bitmap(const QRectF &target, const QByteArray &bitmap, const QRectF &source,
                            RasterOperation operation)
{
    const QImage image = decodeBitmap(bitmap);
    const QRectF part =
        QRectF(source.x(), image.height() - source.y() - source.height(), source.width(), source.height())
            .normalized()
            .intersected(QRectF(image.rect()));
    QTransform place = QTransform::fromTranslate(target.x(), target.y());
    place.scale(target.width() / part.width(), target.height() / part.height());
    place.translate(-part.x(), -part.y());
    const QTransform transform = place * toPixels();
    if (part.isEmpty() || !transform.isInvertible() || !isNear(transform.mapRect(part)))
        return;
    applyClip();
    m_painter.save();
    m_painter.setTransform(transform);
    // A mask with black where the picture comes, then the picture on black: the way to cut out a figure.
    if (operation == RasterOperation::SourceAnd)
        m_painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    else if (operation == RasterOperation::SourcePaint)
        m_painter.setCompositionMode(QPainter::CompositionMode_Plus);
    m_painter.drawImage(part, image, part);
    m_painter.restore();
}

void MetafileCanvas::fill(const QRectF &rect, RasterOperation operation)
{
    using enum RasterOperation;
    const QBrush brush = state.brush;
    if (operation == Blackness || operation == Whiteness)
        state.brush = QBrush(operation == Blackness ? Qt::black : Qt::white);
    else if (operation != PatternCopy)
        return;
    QPainterPath path;
    path.addRect(rect);
    draw(path, true, false);
    state.brush = brush;
}

} // namespace obelmark
