#include "pictures/MetafileState.h"

namespace obelmark {

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
    switch (style) {
    case 0:
        return QBrush(metafileColor(color));
    case 2:
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
