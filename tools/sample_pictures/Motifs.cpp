// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Motifs.h"

#include <QFont>
#include <QtMath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr double full = 165;

QPainterPath starOf(int points, double outer, double inner)
{
    QPolygonF corners;
    for (int corner = 0; corner <= 2 * points; ++corner)
        corners << onCircle(corner % 2 ? inner : outer, -90 + 180.0 * corner / points);
    QPainterPath path;
    path.addPolygon(corners);
    return path;
}

QPainterPath leaf(QPointF at, double degrees)
{
    QPainterPath path;
    path.addEllipse(QPointF(), 24, 9);
    return QTransform().translate(at.x(), at.y()).rotate(degrees).map(path);
}

QPainterPath bar(double length, double width, double degrees)
{
    QPainterPath path;
    path.addRect(-length / 2, -width / 2, length, width);
    return QTransform().rotate(degrees).map(path);
}

/// Overlapping parts are one piece of metal.
QPainterPath joined(std::initializer_list<QPainterPath> parts)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QPainterPath &part : parts)
        path.addPath(part);
    return path.simplified();
}

} // namespace

QPointF onCircle(double r, double degrees)
{
    return {r * qCos(qDegreesToRadians(degrees)), r * qSin(qDegreesToRadians(degrees))};
}

QPainterPath outlined(const QPainterPath &shape, double width)
{
    QPainterPathStroker band;
    band.setWidth(width);
    return band.createStroke(shape);
}

QPainterPath polygon(int corners, double r, double firstAngle)
{
    QPolygonF points;
    for (int corner = 0; corner <= corners; ++corner)
        points << onCircle(r, firstAngle + 360.0 * corner / corners);
    QPainterPath path;
    path.addPolygon(points);
    return path;
}

QPainterPath nothing()
{
    return {};
}

QPainterPath twoTriangles()
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addPath(outlined(polygon(3, full, -90)));
    path.addPath(outlined(polygon(3, full, 90)));
    return path;
}

QPainterPath star()
{
    return starOf(5, full, full * 0.38);
}

QPainterPath starWithRays()
{
    return joined({starOf(5, 110, 42), outlined(starOf(24, full + 10, 135), 6)});
}

QPainterPath sun()
{
    QPainterPath disc;
    disc.addEllipse(QPointF(), 70, 70);
    return joined({outlined(disc), starOf(16, full, 95).subtracted(polygon(32, 92, 0))});
}

QPainterPath crescentAndStar()
{
    QPainterPath disc, bite;
    disc.addEllipse(QPointF(-15, 0), 130, 130);
    bite.addEllipse(QPointF(22, 0), 108, 108);
    return joined({disc.subtracted(bite), starOf(5, 48, 19).translated(50, 0)});
}

QPainterPath cross()
{
    return joined({bar(220, 70, 0), bar(220, 70, 90)});
}

QPainterPath saltire()
{
    return joined({bar(290, 52, 45), bar(290, 52, -45)});
}

QPainterPath petals()
{
    QPainterPath path;
    for (int angle = 0; angle < 360; angle += 36)
        path.addPath(leaf(onCircle(105, angle), angle));
    return path;
}

QPainterPath waves()
{
    QPainterPath path;
    for (int row = 0; row < 5; ++row) {
        for (int column = 0; column < 5; ++column) {
            QPainterPath arc;
            arc.arcMoveTo(-30, -24, 60, 60, 20);
            arc.arcTo(-30, -24, 60, 60, 20, 140);
            const QPointF at((column - 2) * 70 + (row % 2 ? 35 : 0), (row - 2) * 62);
            if (qMax(qAbs(at.x()), qAbs(at.y())) > 80 && std::hypot(at.x(), at.y()) < 200)
                path.addPath(outlined(arc, 9).translated(at));
        }
    }
    return path;
}

QPainterPath owl()
{
    QPainterPath body, eyes, pupils;
    body.addEllipse(QPointF(0, 35), 95, 120);
    QPainterPath head;
    head.addEllipse(QPointF(0, -95), 100, 72);
    for (const double side : {-44.0, 44.0}) {
        eyes.addEllipse(QPointF(side, -98), 34, 34);
        pupils.addEllipse(QPointF(side, -98), 14, 14);
    }
    QPainterPath feathers;
    for (int row = 0; row < 5; ++row) {
        for (int column = -2; column <= 2; ++column)
            feathers.addPath(leaf({column * 32.0, row * 34.0 - 20}, 90));
    }
    QPainterPath beak = polygon(3, 20, 90).translated(0, -62);
    QPainterPath feet;
    for (const double side : {-35.0, 35.0})
        feet.addPath(polygon(3, 32, -90).translated(side, 168));
    return joined(
        {outlined(body), outlined(head), outlined(eyes, 7), pupils, feathers.intersected(body), beak, feet});
}

QPainterPath menorah()
{
    QPainterPath arms;
    for (const double r : {45.0, 90.0, 135.0}) {
        arms.arcMoveTo(-r, -70 - r, 2 * r, 2 * r, 180);
        arms.arcTo(-r, -70 - r, 2 * r, 2 * r, 180, 180);
    }
    QPainterPath flames;
    for (int arm = -3; arm <= 3; ++arm)
        flames.addEllipse(QPointF(arm * 45, -98), 8, 18);
    QPainterPath stem;
    stem.addRect(-7, -70, 14, 190);
    return joined({outlined(arms, 14), stem, flames, polygon(3, 55, -90).translated(0, 120)});
}

QPainterPath sprig()
{
    QPainterPath path = bar(300, 8, 90);
    path.setFillRule(Qt::WindingFill);
    for (int row = -2; row <= 3; ++row) {
        path.addPath(leaf({-28, row * 40.0}, 35));
        path.addPath(leaf({28, row * 40.0}, -35));
    }
    path.addEllipse(QPointF(0, -150), 26, 26);
    return path.simplified();
}

QPainterPath figures(const QString &text)
{
    QFont font(u"DejaVu Serif"_s);
    font.setPixelSize(text.size() > 1 ? 190 : 240);
    font.setBold(true);
    QPainterPath path;
    path.addText(0, 0, font, text);
    return path.translated(-path.boundingRect().center());
}

QPainterPath wreathed(const QString &text)
{
    QPainterPath path = QTransform::fromScale(0.72, 0.72).map(figures(text));
    for (int angle = 0; angle < 360; angle += 15) {
        if (qAbs(angle - 270) > 20)
            path.addPath(leaf(onCircle(angle % 30 ? 168 : 186, angle), angle + 65));
    }
    return path;
}

} // namespace obelmark
