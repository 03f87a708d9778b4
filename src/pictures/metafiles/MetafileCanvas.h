// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pictures/metafiles/MetafileState.h"
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <map>
#include <vector>

namespace obelmark {

/// The drawing surface of a metafile: its state, its objects, and its figures in logical units. A figure that
/// is absurdly far away or too large is passed over.
class MetafileCanvas
{
public:
    enum class Arc { Open, Chord, Pie };
    using Points = std::vector<QPointF>;

    /// \a device is from the units that the window is mapped to, to pixels; \a unitsPerMm is how many of
    /// those make a millimetre.
    MetafileCanvas(QSize pixels, const QTransform &device, QPointF unitsPerMm);

    MetafileState state;
    void save();
    /// As the records count: -1 the last saved, 1 the first.
    void restore(int which);

    std::map<quint32, MetafileObject> objects;
    void select(const MetafileObject &object);

    void polyline(const Points &points);
    void polygons(const std::vector<Points> &polygons);
    /// Continues at the current position when \a to.
    void beziers(const Points &points, bool to);
    void lineTo(QPointF point);
    void rectangle(const QRectF &rect, QSizeF corner = {});
    void ellipse(const QRectF &rect);
    /// Counter-clockwise from the ray through \a from to that through \a to.
    void arc(const QRectF &rect, QPointF from, QPointF to, Arc kind, bool moves = false);
    void text(QPointF point, const QString &text);
    /// A bitmap without file header, \a source of it (its origin is at the bottom, as bitmaps have it).
    void bitmap(const QRectF &target, const QByteArray &bitmap, const QRectF &source,
                RasterOperation operation);
    void fill(const QRectF &rect, RasterOperation operation);
    void clip(const QRectF &rect);

    void beginPath();
    void endPath() { m_recording = false; }
    void closeFigure() { m_path.closeSubpath(); }
    void drawPath(bool filled, bool outlined);
    void clipToPath();

    /// Whether drawing has taken too long already.
    bool isOutOfTime() const { return m_clock.hasExpired(5000); }
    QImage finish();

private:
    QTransform toPixels() const { return state.toDevice(m_unitsPerMm) * m_device; }
    static bool isNear(const QRectF &pixels);
    void draw(const QPainterPath &path, bool filled, bool outlined);
    void applyClip();
    QPen penInPixels(const QTransform &transform) const;

    QImage m_image;
    QPainter m_painter;
    QTransform m_device;
    QPointF m_unitsPerMm;
    std::vector<MetafileState> m_saved;
    QPainterPath m_path;
    bool m_recording = false;
    QElapsedTimer m_clock;
};

} // namespace obelmark
