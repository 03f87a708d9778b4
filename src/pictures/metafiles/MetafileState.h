// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

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

/// How the units of the records become those of the device.
enum class MapMode {
    Text = 1,
    LowMetric,
    HighMetric,
    LowEnglish,
    HighEnglish,
    Twips,
    Isotropic,
    Anisotropic
};

/// What the records call a way to combine a bitmap, or the brush, with what is there already.
enum class RasterOperation : quint32 {
    Blackness = 0x00000042,
    SourceAnd = 0x008800C6,
    SourceCopy = 0x00CC0020,
    SourcePaint = 0x00EE0086,
    PatternCopy = 0x00F00021,
    Whiteness = 0x00FF0062,
};

/// What a metafile sets and what it saves and restores.
struct MetafileState
{
    /// The bits of \a align; without Right and Bottom texts begin and hang at their place.
    enum Align { AtPosition = 1, Right = 2, Centre = 6, Bottom = 8, BaseLine = 24 };

    /// What the records call them.
    void setBackgroundMode(quint32 mode);
    void setFillMode(quint32 mode);
    /// From logical units to those of the device, of which \a unitsPerMm make a millimetre.
    QTransform toDevice(QPointF unitsPerMm) const;

    QPen pen = QPen(Qt::black); ///< width in logical units, 0 for the thinnest line
    QBrush brush = QBrush(Qt::white);
    MetafileFont font;
    QColor textColor = Qt::black;
    QColor background = Qt::white;
    bool opaque = true; ///< texts have a background
    quint32 align = 0;
    Qt::FillRule fillRule = Qt::OddEvenFill;
    QPointF position;

    QTransform world;
    MapMode mapMode = MapMode::Text;
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
