// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/PictureView.h"

#include "forms/AccessibleRole.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTextOption>
#include <QWheelEvent>
#include <cmath>

namespace obelmark {

namespace {

constexpr double keyFactor = 1.25;
constexpr double wheelStep = 120; // in the units of a wheel event
constexpr double keyPan = 60;     // pixels

struct PanKey
{
    int key;
    QPointF by;
};

const PanKey panKeys[] = {{Qt::Key_Left, {keyPan, 0}},
                          {Qt::Key_Right, {-keyPan, 0}},
                          {Qt::Key_Up, {0, keyPan}},
                          {Qt::Key_Down, {0, -keyPan}}};

} // namespace

PictureView::PictureView(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 120);
    setAccessibleRole(*this, QAccessible::Graphic);
    clear();
}

void PictureView::setPicture(const Picture &picture)
{
    m_picture = picture;
    m_reason.clear();
    setAccessibleDescription({});
    m_fitted = QImage();
    m_images = {m_picture.preview()};
    m_zoom.setPicture(picture.size());
    showZoom();
}

void PictureView::clear(const QString &reason)
{
    setPicture(Picture());
    m_reason = reason.isEmpty() ? tr("No picture") : reason;
    setAccessibleDescription(m_reason);
}

QSize PictureView::pixels() const
{
    return (QSizeF(size()) * devicePixelRatio()).toSize();
}

Picture::Boxes PictureView::boxes() const
{
    return {screen()->size() * screen()->devicePixelRatio(), pixels()};
}

void PictureView::showZoom()
{
    const bool isLarger = m_zoom.place().width() > size().width() * devicePixelRatio() ||
                          m_zoom.place().height() > size().height() * devicePixelRatio();
    setCursor(isLarger ? Qt::OpenHandCursor : Qt::ArrowCursor);
    update();
}

const QImage &PictureView::imageFor(double width)
{
    const double wanted = std::min(width, double(m_picture.size().width()));
    if (m_images.front().width() < wanted) {
        const QImage whole = m_picture.whole();
        if (whole.width() > m_images.front().width())
            m_images = {whole};
    }
    while (m_images.back().width() / 2 >= wanted && m_images.back().height() >= 2) {
        const QSize half(m_images.back().width() / 2, m_images.back().height() / 2);
        m_images.push_back(m_images.back().scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    auto image = m_images.end() - 1;
    while (image != m_images.begin() && image->width() < wanted)
        --image;
    return *image;
}

void PictureView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().brush(QPalette::Dark));
    if (m_picture.isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        QTextOption centred(Qt::AlignCenter);
        centred.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        painter.drawText(QRectF(rect().adjusted(16, 16, -16, -16)), m_reason, centred);
    } else {
        painter.scale(1 / devicePixelRatio(), 1 / devicePixelRatio());
        const QRectF place = m_zoom.place();
        const QImage &image = imageFor(place.width());
        if (m_zoom.isFitted()) {
            const QSize size = place.size().toSize();
            if (m_fitted.size() != size)
                m_fitted = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            painter.drawImage(place.topLeft(), m_fitted);
        } else {
            const QRectF shown = place.intersected(QRectF(QPointF(), QSizeF(pixels())));
            const double across = image.width() / place.width(), down = image.height() / place.height();
            const QPointF from = shown.topLeft() - place.topLeft();
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(
                shown, image,
                QRectF(from.x() * across, from.y() * down, shown.width() * across, shown.height() * down));
        }
        painter.resetTransform();
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void PictureView::resizeEvent(QResizeEvent *)
{
    m_zoom.setViewport(QSizeF(size()) * devicePixelRatio());
    showZoom();
}

void PictureView::wheelEvent(QWheelEvent *event)
{
    m_zoom.zoom(std::pow(keyFactor, event->angleDelta().y() / wheelStep), atPixel(event->position()));
    showZoom();
}

void PictureView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragged = event->position();
    if (cursor().shape() == Qt::OpenHandCursor)
        setCursor(Qt::ClosedHandCursor);
}

void PictureView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    m_zoom.pan(atPixel(event->position() - m_dragged));
    m_dragged = event->position();
    update();
}

void PictureView::mouseReleaseEvent(QMouseEvent *)
{
    showZoom();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_zoom.toggle(atPixel(event->position()));
    showZoom();
}

void PictureView::keyPressEvent(QKeyEvent *event)
{
    const auto *panKey = std::ranges::find(panKeys, event->key(), &PanKey::key);
    const QPointF middle = atPixel(QRectF(rect()).center());
    if (panKey != std::end(panKeys))
        m_zoom.pan(panKey->by);
    else if (event->key() == Qt::Key_Plus)
        m_zoom.zoom(keyFactor, middle);
    else if (event->key() == Qt::Key_Minus)
        m_zoom.zoom(1 / keyFactor, middle);
    else if (event->key() == Qt::Key_0)
        m_zoom.fit();
    else
        return QWidget::keyPressEvent(event);
    showZoom();
}

} // namespace obelmark
