#pragma once

#include <QBrush>
#include <QFont>
#include <QPainterPath>
#include <QPen>
#include <QTransform>
#include <optional>
#include <variant>

namespace obelmark {

struct MetafileFont
{
    QFont font;        ///< its size is set when it is drawn
    double height = 0; ///< logical units, of the letters when negative, of the line when positive; 0 default
    double angle = 0;  ///< degrees counter-clockwise
};

/// A pen, brush or font; nothing for an object that has no effect here (a palette).
using MetafileObject = std::variant<std::monostate, QPen, QBrush, MetafileFont>;

/// What a metafile sets and what it saves and restores.
struct MetafileState
{
    QPen pen = QPen(Qt::black); ///< width in logical units, 0 for the thinnest line
    QBrush brush = QBrush(Qt::white);
    MetafileFont font;
    QColor textColor = Qt::black;
    QColor background = Qt::white;
    bool opaque = true; ///< texts have a background
    quint32 align = 0;  ///< as in the records: 1 at the position, 6 centred, 2 right, 24 base line, 8 bottom
    Qt::FillRule fillRule = Qt::OddEvenFill;
    QPointF position;

    QTransform world;
    int mapMode = 1;
    QPointF windowOrigin;
    QPointF windowExtent = {1, 1};
    QPointF viewportOrigin;
    QPointF viewportExtent = {1, 1};

    std::optional<QRectF> clipRect; ///< in pixels
    std::optional<QPainterPath> clipPath;
};

/// A colour as the records have it: 0x00BBGGRR.
QColor metafileColor(quint32 value);
QPen metafilePen(quint32 style, double width, quint32 color);
QBrush metafileBrush(quint32 style, quint32 color, quint32 hatch);
MetafileFont metafileFont(int height, int angle, int weight, bool italic, bool underline, bool strikeOut,
                          const QString &family);

} // namespace obelmark
