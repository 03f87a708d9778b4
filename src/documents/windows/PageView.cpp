// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/PageView.h"

#include "documents/PageSetup.h"
#include "forms/AccessibleRole.h"
#include <QKeyEvent>
#include <QPainter>
#include <QScopeGuard>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

namespace obelmark {

static constexpr double scaleStep = 1.2; // for a notch of the wheel
static constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
static constexpr int lineStep = 40; // pixels
static constexpr QColor matchColour(255, 225, 0, 110);
static constexpr QColor currentMatchColour(255, 130, 0, 150);

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    // A bar that came and went would change the width that a page is to fit.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setSingleStep(lineStep);
    horizontalScrollBar()->setSingleStep(lineStep);
    setAccessibleRole(*this, QAccessible::Document);
    connect(this, &PageView::changed, this, &PageView::describePage);
}

/// The pages are but painted: a screen reader is told what stands there.
void PageView::describePage()
{
    const QString text = pageCount() > 0 ? m_document->pageText(m_current) : QString();
    if (text != accessibleDescription())
        setAccessibleDescription(text);
}

void PageView::setDocument(const ReportDocument &document)
{
    m_document = &document;
    documentChanged();
}

void PageView::documentChanged()
{
    arrange(zoom(), m_arrangement.terms().freeScale, topOfCurrentPage());
}

void PageView::rewind()
{
    m_current = 0;
    m_shown.reset();
    verticalScrollBar()->setValue(0);
}

bool PageView::isWholePages() const
{
    return zoom() == Zoom::WholePage || zoom() == Zoom::TwoPages;
}

QPointF PageView::offset() const
{
    return QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

QRectF PageView::visible() const
{
    return {offset(), QSizeF(viewport()->size())};
}

PageView::Anchor PageView::anchorAt(QPointF inView) const
{
    const QPointF point = offset() + inView;
    const qsizetype page = m_arrangement.pageAt(point);
    return {page, (point - m_arrangement.pageRect(page).topLeft()) / m_arrangement.scale(), inView};
}

PageView::Anchor PageView::topOfCurrentPage() const
{
    return {m_current, {}, {PageArrangement::gap, PageArrangement::gap}};
}

void PageView::arrange(Zoom zoom, double freeScale, const Anchor &anchor)
{
    if (!m_document)
        return;
    {
        m_isArranging = true;
        const auto done = qScopeGuard([this] { m_isArranging = false; });
        m_arrangement.arrange({m_document->page().size(), m_document->pageCount(), QSizeF(viewport()->size()),
                               zoom, freeScale});
        const QSize size = m_arrangement.size().toSize();
        // A line is seen again after a screenful.
        verticalScrollBar()->setPageStep(qMax(1, viewport()->height() - lineStep));
        verticalScrollBar()->setRange(0, qMax(0, size.height() - viewport()->height()));
        horizontalScrollBar()->setPageStep(viewport()->width());
        horizontalScrollBar()->setRange(0, qMax(0, size.width() - viewport()->width()));
    }
    m_current = qBound<qsizetype>(0, m_current, qMax<qsizetype>(0, pageCount() - 1));
    if (isWholePages())
        goToPage(m_current);
    else if (pageCount() > 0)
        scrollTo(m_arrangement.pageRect(qMin(anchor.page, pageCount() - 1)).topLeft() +
                 anchor.twips * m_arrangement.scale() - anchor.inView);
    viewport()->update();
    emit changed();
}

void PageView::scrollTo(QPointF topLeft)
{
    horizontalScrollBar()->setValue(int(std::lround(topLeft.x())));
    verticalScrollBar()->setValue(int(std::lround(topLeft.y())));
}

void PageView::setCurrent(qsizetype page)
{
    if (page == m_current)
        return;
    m_current = page;
    viewport()->update();
    emit changed();
}

void PageView::goToPage(qsizetype page)
{
    if (pageCount() == 0)
        return;
    page = qBound<qsizetype>(0, page, pageCount() - 1);
    setCurrent(page);
    const QRectF rect = m_arrangement.pageRect(page);
    // A page that is all there already stays where it is.
    if (!visible().contains(rect))
        verticalScrollBar()->setValue(int(rect.top() - m_arrangement.pageRect(0).top()));
    setCurrent(page);
}

ReportPlace PageView::firstVisible() const
{
    // Paper that is turned to and fro does not creep on to the first line of each of its pages.
    if (m_shown && m_shown->page == m_current && m_shown->offset == offset())
        return m_shown->place;
    static constexpr double sliver = 2; // pixels of a line that do not count
    const double top = visible().top() + sliver - m_arrangement.pageRect(m_current).top();
    return m_document->placeAt(m_current, qMax(0.0, top / m_arrangement.scale()));
}

void PageView::goTo(const ReportPlace &place)
{
    const PagePosition position = m_document->positionOf(place);
    goToPage(position.page);
    if (zoom() == Zoom::PageWidth || zoom() == Zoom::Free) {
        const QRectF page = m_arrangement.pageRect(position.page);
        const double top = page.top() + position.top * m_arrangement.scale();
        verticalScrollBar()->setValue(int(page.top() - PageArrangement::gap));
        if (top + lineStep > visible().bottom())
            verticalScrollBar()->setValue(int(top));
        setCurrent(position.page);
    }
    m_shown = {place, m_current, offset()};
}

void PageView::step(int rows)
{
    if (zoom() == Zoom::TwoPages)
        goToPage(m_arrangement.firstOfRow(m_current) + rows * m_arrangement.columns());
    else
        goToPage(m_current + rows);
}

void PageView::setZoom(Zoom zoom)
{
    const bool isPageKept = isWholePages() || this->zoom() == Zoom::Thumbnail || zoom == Zoom::Thumbnail;
    arrange(zoom, relativeScale(), isPageKept ? topOfCurrentPage() : anchorAt({}));
}

void PageView::zoomBy(double factor)
{
    zoomBy(factor, QRectF(viewport()->rect()).center());
}

void PageView::zoomBy(double factor, QPointF inView)
{
    const double scale =
        qBound(PageArrangement::smallestScale, relativeScale() * factor, PageArrangement::largestScale);
    arrange(Zoom::Free, scale, anchorAt(inView));
}

void PageView::highlight(const QString &text, const std::optional<ReportMatch> &current)
{
    m_text = text;
    m_match = current;
    viewport()->update();
}

void PageView::showPlace(qsizetype page, const QRectF &place)
{
    goToPage(page);
    const QPointF origin = m_arrangement.pageRect(page).topLeft();
    const QRectF rect(origin + place.topLeft() * m_arrangement.scale(), place.size() * m_arrangement.scale());
    if (!visible().contains(rect))
        scrollTo(rect.center() - QRectF(viewport()->rect()).center());
    setCurrent(page);
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (!m_isArranging)
        arrange(zoom(), m_arrangement.terms().freeScale, anchorAt({}));
}

void PageView::scrollContentsBy(int dx, int dy)
{
    Q_UNUSED(dx)
    Q_UNUSED(dy)
    viewport()->update();
    if (!m_isArranging && pageCount() > 0)
        setCurrent(m_arrangement.mostVisible(visible(), m_current));
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    const int steps = isWholePages() ? 1 : 0;
    switch (event->key()) {
    case Qt::Key_Home:
        goToPage(0);
        scrollTo({});
        return;
    case Qt::Key_End:
        goToPage(pageCount() - 1);
        return;
    case Qt::Key_PageDown:
    case Qt::Key_Down:
    case Qt::Key_Right:
        if (steps > 0) {
            step(steps);
            return;
        }
        break;
    case Qt::Key_PageUp:
    case Qt::Key_Up:
    case Qt::Key_Left:
        if (steps > 0) {
            step(-steps);
            return;
        }
        break;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::wheelEvent(QWheelEvent *event)
{
    const int turned = event->angleDelta().y();
    if (event->modifiers() & Qt::ControlModifier) {
        zoomBy(std::pow(scaleStep, double(turned) / notch), event->position());
        event->accept();
    } else if (isWholePages()) {
        // Touch pads send small pieces of a notch.
        m_wheel = (m_wheel > 0) == (turned > 0) ? m_wheel + turned : turned;
        if (std::abs(m_wheel) >= notch) {
            step(m_wheel > 0 ? -1 : 1);
            m_wheel %= notch;
        }
        event->accept();
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    const qsizetype page = m_arrangement.pageAt(offset() + event->position());
    if (pageCount() > 0 && m_arrangement.pageRect(page).contains(offset() + event->position()))
        setCurrent(page);
}

void PageView::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
    if (zoom() == Zoom::Thumbnail) {
        setZoom(Zoom::PageWidth);
        goToPage(m_current);
    }
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Dark));
    if (pageCount() == 0)
        return;
    painter.translate(-offset());
    const qsizetype last = m_arrangement.pageAt(visible().bottomRight());
    for (qsizetype page = m_arrangement.pageAt(visible().topLeft()); page <= last; ++page) {
        if (m_arrangement.pageRect(page).intersects(visible()))
            paintPage(painter, page);
    }
}

void PageView::paintPage(QPainter &painter, qsizetype page) const
{
    const QRectF rect = m_arrangement.pageRect(page);
    const bool isMarked = page == m_current && m_arrangement.columns() > 1;
    const double frame = isMarked ? 3 : 1;
    painter.fillRect(rect.adjusted(-frame, -frame, frame, frame),
                     isMarked ? palette().color(QPalette::Highlight) : QColor(Qt::black));
    painter.fillRect(rect, Qt::white);
    painter.save();
    painter.setClipRect(rect.intersected(visible()));
    painter.translate(rect.topLeft());
    painter.scale(m_arrangement.scale(), m_arrangement.scale());
    m_document->paintPage(painter, page);
    for (const ReportDocument::MatchRect &found : m_document->matchRects(page, m_text))
        painter.fillRect(found.rect, found.match == m_match ? currentMatchColour : matchColour);
    painter.restore();
}

} // namespace obelmark
