// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/MetafileCanvas.h"

#include <cmath>

namespace obelmark {

namespace {

/// Degrees counter-clockwise of the ray from the middle of an ellipse, as in a circle.
double angleTo(const QRectF &rect, QPointF point)
{
    const QPointF ray = point - rect.center();
    return std::atan2(-ray.y() / rect.height(), ray.x() / rect.width()) * 180 / M_PI;
}

void addLines(QPainterPath &path, const MetafileCanvas::Points &points)
{
    for (size_t i = 0; i < points.size(); ++i) {
        if (i == 0)
            path.moveTo(points[i]);
        else
            path.lineTo(points[i]);
    }
}

} // namespace

void MetafileCanvas::polyline(const Points &points)
{
    QPainterPath path;
    addLines(path, points);
    draw(path, false, true);
}

void MetafileCanvas::polygons(const std::vector<Points> &polygons)
{
    QPainterPath path;
    for (const Points &points : polygons) {
        addLines(path, points);
        path.closeSubpath();
    }
    draw(path, true, true);
}

void MetafileCanvas::beziers(const Points &points, bool to)
{
    if (points.empty())
        return;
    QPainterPath path;
    path.moveTo(to ? state.position : points[0]);
    for (size_t i = to ? 0 : 1; i + 2 < points.size(); i += 3)
        path.cubicTo(points[i], points[i + 1], points[i + 2]);
    if (to)
        state.position = points.back();
    if (m_recording && to && !m_path.isEmpty())
        m_path.connectPath(path);
    else
        draw(path, false, true);
}

void MetafileCanvas::lineTo(QPointF point)
{
    if (m_recording && !m_path.isEmpty() && m_path.currentPosition() == state.position)
        m_path.lineTo(point);
    else
        polyline({state.position, point});
    state.position = point;
}

void MetafileCanvas::rectangle(const QRectF &rect, QSizeF corner)
{
    QPainterPath path;
    if (corner.isEmpty())
        path.addRect(rect);
    else
        path.addRoundedRect(rect, corner.width() / 2, corner.height() / 2);
    draw(path, true, true);
}

void MetafileCanvas::ellipse(const QRectF &rect)
{
    QPainterPath path;
    path.addEllipse(rect);
    draw(path, true, true);
}

void MetafileCanvas::arc(const QRectF &rect, QPointF from, QPointF to, Arc kind, bool moves)
{
    if (rect.isEmpty())
        return;
    const double start = angleTo(rect, from);
    double sweep = angleTo(rect, to) - start;
    if (sweep <= 0)
        sweep += 360;
    QPainterPath path;
    if (kind == Arc::Pie)
        path.moveTo(rect.center());
    else
        path.arcMoveTo(rect, start);
    if (moves)
        path = QPainterPath(state.position);
    path.arcTo(rect, start, sweep);
    if (moves)
        state.position = path.currentPosition();
    if (kind != Arc::Open)
        path.closeSubpath();
    draw(path, kind != Arc::Open, true);
}

} // namespace obelmark
