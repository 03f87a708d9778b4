#include "DrawnCoin.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 280;
constexpr double holeRadius = 42;
constexpr int size = 600;

QPointF onCircle(double r, double degrees)
{
    return {r * qCos(qDegreesToRadians(degrees)), r * qSin(qDegreesToRadians(degrees))};
}

/// Raised metal: a light edge above, a dark one below.
void drawRaised(QPainter &painter, const QPainterPath &shape)
{
    painter.fillPath(shape.translated(3, 3), QColor(92, 90, 84));
    painter.fillPath(shape.translated(-2, -2), QColor(238, 236, 230));
    painter.fillPath(shape, QColor(190, 187, 178));
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

QPainterPath triangle(double r, double start)
{
    QPolygonF corners;
    for (const int corner : {0, 120, 240, 360})
        corners << onCircle(r, start + corner);
    QPainterPath path;
    path.addPolygon(corners);
    return path;
}

} // namespace

QImage drawnCoin()
{
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(QColor(52, 60, 74));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(size / 2.0, size / 2.0);

    QPainterPath disc;
    disc.addEllipse(QPointF(), radius, radius);
    disc.addEllipse(QPointF(), holeRadius, holeRadius);
    QLinearGradient light(-radius, -radius, radius, radius);
    light.setColorAt(0, QColor(214, 211, 202));
    light.setColorAt(1, QColor(138, 135, 127));
    painter.fillPath(disc, light);

    QPainterPath raised;
    raised.setFillRule(Qt::WindingFill);
    QPainterPathStroker band;
    band.setWidth(12);
    QPainterPath rims;
    rims.addEllipse(QPointF(), radius - 6, radius - 6);
    rims.addEllipse(QPointF(), holeRadius + 8, holeRadius + 8);
    raised.addPath(band.createStroke(rims));
    for (int tooth = 0; tooth < 360; tooth += 4)
        raised.addEllipse(onCircle(radius - 20, tooth), 4.5, 4.5);
    for (const int start : {-90, 90})
        raised.addPath(band.createStroke(triangle(165, start)));
    raised.addPath(legend(u"BRITISH WEST AFRICA"_s, 196, false));
    raised.addPath(legend(u"· 1936 ·"_s, 236, true));
    drawRaised(painter, raised);
    return image;
}

} // namespace obelmark
