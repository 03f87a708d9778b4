// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/metafiles/MetafileState.h"

namespace obelmark {

void MetafileState::setBackgroundMode(quint32 mode)
{
    enum { Transparent = 1, Opaque = 2 };
    opaque = mode == Opaque;
}

void MetafileState::setFillMode(quint32 mode)
{
    enum { Alternate = 1, Winding = 2 };
    fillRule = mode == Winding ? Qt::WindingFill : Qt::OddEvenFill;
}

QTransform MetafileState::toDevice(QPointF unitsPerMm) const
{
    // Millimetres to a unit of the fixed modes: 0.1, 0.01, 1/100 and 1/1000 inch, 1/1440 inch.
    constexpr double fixedModes[] = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
    QPointF scale(1, 1);
    if (mapMode >= MapMode::Isotropic) {
        scale = {viewportExtent.x() / windowExtent.x(), viewportExtent.y() / windowExtent.y()};
    } else if (mapMode >= MapMode::LowMetric) {
        const double unit = fixedModes[int(mapMode) - int(MapMode::LowMetric)];
        scale = {unit * unitsPerMm.x(), -unit * unitsPerMm.y()};
    }
    const QTransform page(scale.x(), 0, 0, scale.y(), viewportOrigin.x() - windowOrigin.x() * scale.x(),
                          viewportOrigin.y() - windowOrigin.y() * scale.y());
    return world * page;
}

QColor metafileColor(quint32 value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

QPen metafilePen(quint32 style, double width, quint32 color)
{
    constexpr Qt::PenStyle styles[] = {Qt::SolidLine,      Qt::DashLine, Qt::DotLine,   Qt::DashDotLine,
                                       Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine, Qt::SolidLine};
    constexpr Qt::PenCapStyle caps[] = {Qt::RoundCap, Qt::SquareCap, Qt::FlatCap, Qt::RoundCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::RoundJoin, Qt::BevelJoin, Qt::MiterJoin, Qt::RoundJoin};
    QPen pen(metafileColor(color));
    pen.setStyle(styles[style & 7]);
    pen.setCapStyle(caps[style >> 8 & 3]);
    pen.setJoinStyle(joins[style >> 12 & 3]);
    pen.setWidthF(width);
    return pen;
}

QBrush metafileBrush(quint32 style, quint32 color, quint32 hatch)
{
    constexpr Qt::BrushStyle hatches[] = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                          Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    enum { Solid = 0, Hatched = 2 };
    switch (style) {
    case Solid:
        return QBrush(metafileColor(color));
    case Hatched:
        return QBrush(metafileColor(color), hatches[hatch % std::size(hatches)]);
    default:
        return QBrush(Qt::NoBrush);
    }
}

MetafileFont metafileFont(int height, int angle, int weight, bool italic, bool underline, bool strikeOut,
                          const QString &family)
{
    MetafileFont font;
    font.font.setFamily(family);
    font.font.setWeight(QFont::Weight(qBound(1, weight == 0 ? int(QFont::Normal) : weight, 1000)));
    font.font.setItalic(italic);
    font.font.setUnderline(underline);
    font.font.setStrikeOut(strikeOut);
    font.height = height;
    font.angle = angle / 10.0;
    return font;
}

} // namespace obelmark
