// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/MetafileCanvas.h"

#include <cmath>

namespace obelmark {

namespace {

// Beyond this nothing of a figure that matters is in the picture, and drawing it would take long.
constexpr double farAway = 32'000;
constexpr double longestDashes = 20'000;
constexpr size_t mostSaved = 1000;

} // namespace

MetafileCanvas::MetafileCanvas(QSize pixels, const QTransform &device, QPointF unitsPerMm)
    : m_image(pixels, QImage::Format_RGB32), m_device(device), m_unitsPerMm(unitsPerMm)
{
    m_image.fill(Qt::white);
    m_painter.begin(&m_image);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    m_clock.start();
}

bool MetafileCanvas::isNear(const QRectF &pixels)
{
    // So written that it is false for what is no number.
    return pixels.left() > -farAway && pixels.top() > -farAway && pixels.right() < farAway &&
           pixels.bottom() < farAway;
}

void MetafileCanvas::save()
{
    if (m_saved.size() < mostSaved)
        m_saved.push_back(state);
}

void MetafileCanvas::restore(int which)
{
    const qint64 index = which < 0 ? qint64(m_saved.size()) + which : qint64(which) - 1;
    if (index < 0 || index >= qint64(m_saved.size()))
        return;
    state = m_saved[size_t(index)];
    m_saved.resize(size_t(index));
}

void MetafileCanvas::select(const MetafileObject &object)
{
    if (const auto *pen = std::get_if<QPen>(&object))
        state.pen = *pen;
    else if (const auto *brush = std::get_if<QBrush>(&object))
        state.brush = *brush;
    else if (const auto *font = std::get_if<MetafileFont>(&object))
        state.font = *font;
}

QPen MetafileCanvas::penInPixels(const QTransform &transform) const
{
    QPen pen = state.pen;
    const double scale = std::sqrt(std::abs(transform.determinant()));
    pen.setWidthF(std::max(1.0, std::min(pen.widthF() * scale, 2.0 * m_image.width())));
    return pen;
}

void MetafileCanvas::applyClip()
{
    m_painter.setClipping(false);
    if (state.clipRect)
        m_painter.setClipRect(*state.clipRect);
    if (state.clipPath)
        m_painter.setClipPath(*state.clipPath, state.clipRect ? Qt::IntersectClip : Qt::ReplaceClip);
}

void MetafileCanvas::draw(const QPainterPath &path, bool filled, bool outlined)
{
    if (m_recording) {
        m_path.addPath(path);
        return;
    }
    const QTransform transform = toPixels();
    QPainterPath figure = transform.map(path);
    const QRectF bounds = figure.controlPointRect();
    if (!isNear(bounds))
        return;
    figure.setFillRule(state.fillRule);
    QPen pen = outlined ? penInPixels(transform) : QPen(Qt::NoPen);
    if (pen.style() != Qt::NoPen && bounds.width() + bounds.height() > longestDashes)
        pen.setStyle(Qt::SolidLine);
    applyClip();
    m_painter.setPen(pen);
    m_painter.setBrush(filled ? state.brush : QBrush(Qt::NoBrush));
    m_painter.drawPath(figure);
}

void MetafileCanvas::clip(const QRectF &rect)
{
    const QRectF pixels = toPixels().mapRect(rect.normalized());
    if (isNear(pixels))
        state.clipRect = state.clipRect ? state.clipRect->intersected(pixels) : pixels;
}

void MetafileCanvas::beginPath()
{
    m_path = QPainterPath();
    m_recording = true;
}

void MetafileCanvas::drawPath(bool filled, bool outlined)
{
    m_recording = false;
    draw(m_path, filled, outlined);
    m_path = QPainterPath();
}

void MetafileCanvas::clipToPath()
{
    m_recording = false;
    const QPainterPath pixels = toPixels().map(m_path);
    if (isNear(pixels.controlPointRect()))
        state.clipPath = pixels;
    m_path = QPainterPath();
}

QImage MetafileCanvas::finish()
{
    m_painter.end();
    return m_image;
}

} // namespace obelmark
