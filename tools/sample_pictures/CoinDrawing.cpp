// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CoinDrawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 280;
constexpr double holeRadius = 42;
constexpr int room = 600;
constexpr int pixels = 480;

/// A grey of silver in that metal.
QColor shade(Metal metal, int red, int green, int blue)
{
    static constexpr double tints[][3] = {{1, 1, 1}, {1.08, 0.9, 0.5}, {0.9, 0.6, 0.42}, {1, 0.88, 0.58}};
    const double *tint = tints[int(metal)];
    return {qMin(255, qRound(red * tint[0])), qMin(255, qRound(green * tint[1])), qRound(blue * tint[2])};
}

/// Raised metal: a light edge above, a dark one below.
void drawRaised(QPainter &painter, const QPainterPath &shape, Metal metal)
{
    painter.fillPath(shape.translated(3, 3), shade(metal, 92, 90, 84));
    painter.fillPath(shape.translated(-2, -2), shade(metal, 238, 236, 230));
    painter.fillPath(shape, shade(metal, 190, 187, 178));
}

/// Letters whose feet stand on the circle: outwards around the top, inwards around the foot of the coin.
QPainterPath legend(const QString &text, double r, bool atFoot)
{
    QFont font(u"DejaVu Serif"_s);
    font.setPixelSize(52);
    font.setBold(true);
    const QFontMetricsF metrics(font);
    const double degreesPerPixel = qRadiansToDegrees(1 / r) * 1.12;
    double angle = -metrics.horizontalAdvance(text) * degreesPerPixel / 2;
    QPainterPath letters;
    for (const QChar letter : text) {
        const double half = metrics.horizontalAdvance(letter) / 2;
        angle += half * degreesPerPixel;
        QTransform turn;
        turn.rotate(atFoot ? -angle : angle);
        turn.translate(-half, atFoot ? r : -r);
        QPainterPath path;
        path.addText(0, 0, font, letter);
        letters.addPath(turn.map(path));
        angle += half * degreesPerPixel;
    }
    return letters;
}

/// Round, or with its first corner above; a square stands on its side.
QPainterPath outline(int corners, double r)
{
    QPainterPath path;
    if (corners <= 0)
        path.addEllipse(QPointF(), r, r);
    else
        path = polygon(corners, corners == 4 ? r * 1.15 : r, corners % 2 ? -90 : -90 + 180.0 / corners);
    return path;
}

} // namespace

QImage drawn(const CoinDrawing &coin)
{
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.fill(QColor(52, 60, 74));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(pixels) / room, double(pixels) / room);
    painter.translate(room / 2.0, room / 2.0);

    QPainterPath disc = outline(coin.corners, radius);
    QPainterPath rims = outline(coin.corners, radius - 6);
    if (coin.holeCorners != 0) {
        disc.addPath(outline(coin.holeCorners, holeRadius));
        rims.addPath(outline(coin.holeCorners, holeRadius + 8));
    }
    QLinearGradient light(-radius, -radius, radius, radius);
    light.setColorAt(0, shade(coin.metal, 214, 211, 202));
    light.setColorAt(1, shade(coin.metal, 138, 135, 127));
    painter.fillPath(disc, light);

    QPainterPath raised;
    raised.setFillRule(Qt::WindingFill);
    raised.addPath(outlined(rims));
    if (coin.corners == 0) {
        for (int tooth = 0; tooth < 360; tooth += 4)
            raised.addEllipse(onCircle(radius - 20, tooth), 4.5, 4.5);
    }
    const double inner = coin.corners > 0 ? qCos(M_PI / coin.corners) : 1;
    raised.addPath(legend(coin.legend, 196 * inner, false));
    raised.addPath(legend(coin.foot, 236 * inner, true));
    drawRaised(painter, raised, coin.metal);
    QPainterPath motif = coin.motif;
    drawRaised(painter, motif, coin.metal);
    return image;
}

} // namespace obelmark
