// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PageArrangement.h"

#include "documents/PageSetup.h"
#include <QtMath>

namespace obelmark {

static constexpr double thumbnailHeight = 180; // pixels, of an upright page
static constexpr double pixelsPerTwip = 96 / twipsPerInch;

void PageArrangement::arrange(const Terms &terms)
{
    m_terms = terms;
    m_columns = 1;
    switch (terms.zoom) {
    case Zoom::WholePage:
        m_scale = scaleFor(1, true);
        break;
    case Zoom::PageWidth:
        m_scale = scaleFor(1, false);
        break;
    case Zoom::TwoPages:
        m_columns = 2;
        m_scale = scaleFor(2, true);
        break;
    case Zoom::Thumbnail:
        m_scale = thumbnailHeight / qMax(terms.paper.width(), terms.paper.height());
        m_columns = qMax(1, int((terms.viewport.width() - gap) / cell().width()));
        break;
    case Zoom::Free:
        m_scale = qBound(smallestScale, terms.freeScale, largestScale) * pixelsPerTwip;
        break;
    }
}

double PageArrangement::scaleFor(double columns, bool wholeHeight) const
{
    double scale = (m_terms.viewport.width() - (columns + 1) * gap) / columns / m_terms.paper.width();
    if (wholeHeight)
        scale = qMin(scale, (m_terms.viewport.height() - 2 * gap) / m_terms.paper.height());
    return qMax(scale, smallestScale * pixelsPerTwip);
}

double PageArrangement::relativeScale() const
{
    return m_scale / pixelsPerTwip;
}

QSizeF PageArrangement::cell() const
{
    return m_terms.paper * m_scale + QSizeF(gap, gap);
}

QSizeF PageArrangement::size() const
{
    const qsizetype rows = (m_terms.pages + m_columns - 1) / m_columns;
    return {m_columns * cell().width() + gap, double(rows) * cell().height() + gap};
}

QRectF PageArrangement::pageRect(qsizetype page) const
{
    const double left = qMax(0.0, (m_terms.viewport.width() - size().width()) / 2) + gap;
    const double top = gap + double(page / m_columns) * cell().height();
    return {QPointF(left + double(page % m_columns) * cell().width(), top), m_terms.paper * m_scale};
}

qsizetype PageArrangement::pageAt(QPointF point) const
{
    const QPointF inside = point - pageRect(0).topLeft();
    const auto row = qMax<qsizetype>(0, qFloor(inside.y() / cell().height()));
    const int column = qBound(0, qFloor(inside.x() / cell().width()), m_columns - 1);
    return qBound<qsizetype>(0, row * m_columns + column, m_terms.pages - 1);
}

double PageArrangement::visibleArea(qsizetype page, const QRectF &visible) const
{
    const QRectF part = pageRect(page).intersected(visible);
    return part.width() * part.height();
}

qsizetype PageArrangement::mostVisible(const QRectF &visible, qsizetype preferred) const
{
    static constexpr double less = 0.999; // of pages alike the area may differ in the last digits
    qsizetype best = preferred;
    const qsizetype last = pageAt(visible.bottomRight());
    for (qsizetype page = pageAt(visible.topLeft()); page <= last; ++page) {
        if (visibleArea(best, visible) < visibleArea(page, visible) * less)
            best = page;
    }
    return best;
}

} // namespace obelmark
