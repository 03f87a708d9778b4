#include "pictures/MetafileCanvas.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLineF>
#include <cmath>

namespace obelmark {

namespace {

// Beyond this nothing of a figure that matters is in the picture, and drawing it would take long.
constexpr double farAway = 32'000;
constexpr double longestDashes = 20'000;
constexpr size_t mostSaved = 1000;

bool isNear(const QRectF &rect)
{
    // So written that it is false for what is no number.
    return rect.left() > -farAway && rect.top() > -farAway && rect.right() < farAway &&
           rect.bottom() < farAway;
}

/// Degrees counter-clockwise of the ray from the middle of an ellipse, as in a circle.
double angleTo(const QRectF &rect, QPointF point)
{
    const QPointF ray = point - rect.center();
    return std::atan2(-ray.y() / rect.height(), ray.x() / rect.width()) * 180 / M_PI;
}

QImage decodeBitmap(const QByteArray &bitmap)
{
    QBuffer buffer;
    buffer.setData(bitmap);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer, "dib").read();
}

} // namespace

MetafileCanvas::MetafileCanvas(QSize pixels, const QTransform &device, QPointF unitsPerMm)
    : m_image(pixels, QImage::Format_RGB32), m_device(device), m_unitsPerMm(unitsPerMm)
{
    m_image.fill(Qt::white);
    m_painter.begin(&m_image);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    m_clock.start();
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

QTransform MetafileCanvas::toPixels() const
{
    // Millimetres to a unit of the fixed modes: 0.1, 0.01, 1/100 and 1/1000 inch, 1/1440 inch.
    constexpr double fixedModes[] = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
    QPointF scale(1, 1);
    if (state.mapMode >= Isotropic) {
        scale = {state.viewportExtent.x() / state.windowExtent.x(),
                 state.viewportExtent.y() / state.windowExtent.y()};
    } else if (state.mapMode >= LowMetric) {
        const double unit = fixedModes[state.mapMode - LowMetric];
        scale = {unit * m_unitsPerMm.x(), -unit * m_unitsPerMm.y()};
    }
    const QTransform page(scale.x(), 0, 0, scale.y(),
                          state.viewportOrigin.x() - state.windowOrigin.x() * scale.x(),
                          state.viewportOrigin.y() - state.windowOrigin.y() * scale.y());
    return state.world * page * m_device;
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

static void addLines(QPainterPath &path, const MetafileCanvas::Points &points)
{
    for (size_t i = 0; i < points.size(); ++i) {
        if (i == 0)
            path.moveTo(points[i]);
        else
            path.lineTo(points[i]);
    }
}

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
    if (moves) {
        path = QPainterPath(state.position);
    }
    path.arcTo(rect, start, sweep);
    if (moves)
        state.position = path.currentPosition();
    if (kind != Arc::Open)
        path.closeSubpath();
    draw(path, kind != Arc::Open, true);
}

void MetafileCanvas::text(QPointF point, const QString &text)
{
    enum { AtPosition = 1, Right = 2, Centre = 6, Bottom = 8, BaseLine = 24 };
    const QTransform transform = toPixels();
    const QPointF place = transform.map(state.align & AtPosition ? state.position : point);
    if (!isNear({place, QSizeF(1, 1)}))
        return;
    const double scale = QLineF(transform.map(QPointF()), transform.map(QPointF(0, 1))).length();
    const double wanted = state.font.height == 0 ? 12 : std::abs(state.font.height) * scale;
    QFont font = state.font.font;
    font.setPixelSize(int(qBound(1.0, state.font.height > 0 ? wanted * 0.85 : wanted, 2000.0)));
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(text);
    const quint32 across = state.align & Centre, down = state.align & BaseLine;
    const double left = across == Centre ? -width / 2 : across == Right ? -width : 0;
    const double base = down == BaseLine ? 0 : down == Bottom ? -metrics.descent() : metrics.ascent();

    applyClip();
    m_painter.save();
    m_painter.translate(place);
    m_painter.rotate(-state.font.angle);
    if (state.opaque)
        m_painter.fillRect(QRectF(left, base - metrics.ascent(), width, metrics.height()), state.background);
    m_painter.setFont(font);
    m_painter.setPen(state.textColor);
    m_painter.drawText(QPointF(left, base), text);
    m_painter.restore();
}

void MetafileCanvas::bitmap(const QRectF &target, const QByteArray &bitmap, const QRectF &source,
                            quint32 operation)
{
    constexpr quint32 sourceAnd = 0x008800C6, sourceOr = 0x00EE0086;
    const QImage image = decodeBitmap(bitmap);
    const QRectF part =
        QRectF(source.x(), image.height() - source.y() - source.height(), source.width(), source.height())
            .normalized()
            .intersected(QRectF(image.rect()));
    QTransform place = QTransform::fromTranslate(target.x(), target.y());
    place.scale(target.width() / part.width(), target.height() / part.height());
    place.translate(-part.x(), -part.y());
    const QTransform transform = place * toPixels();
    if (part.isEmpty() || !transform.isInvertible() || !isNear(transform.mapRect(part)))
        return;
    applyClip();
    m_painter.save();
    m_painter.setTransform(transform);
    // A mask with black where the picture comes, then the picture on black: the way to cut out a figure.
    if (operation == sourceAnd)
        m_painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    else if (operation == sourceOr)
        m_painter.setCompositionMode(QPainter::CompositionMode_Plus);
    m_painter.drawImage(part, image, part);
    m_painter.restore();
}

void MetafileCanvas::fill(const QRectF &rect, quint32 operation)
{
    constexpr quint32 blackness = 0x00000042, whiteness = 0x00FF0062, patternCopy = 0x00F00021;
    const QBrush brush = state.brush;
    if (operation == blackness || operation == whiteness)
        state.brush = QBrush(operation == blackness ? Qt::black : Qt::white);
    else if (operation != patternCopy)
        return;
    QPainterPath path;
    path.addRect(rect);
    draw(path, true, false);
    state.brush = brush;
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
