// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRectF>

namespace obelmark {

/// How much of a report is seen at once.
enum class Zoom { WholePage, PageWidth, TwoPages, Thumbnail, Free };

/// Where the pages of a preview lie on the sheet that the user scrolls: in rows of one or more, centred. In
/// device independent pixels.
class PageArrangement
{
public:
    struct Terms
    {
        QSizeF paper; ///< in twips
        qsizetype pages = 0;
        QSizeF viewport;
        Zoom zoom = Zoom::PageWidth;
        double freeScale = 1; ///< of the original size; for Zoom::Free
    };
    static constexpr double gap = 12; ///< around every page
    static constexpr double smallestScale = 0.1;
    static constexpr double largestScale = 4;

    void arrange(const Terms &terms);

    const Terms &terms() const { return m_terms; }
    /// Pixels for a twip.
    double scale() const { return m_scale; }
    /// The same to the original size, at 96 pixels to the inch.
    double relativeScale() const;
    int columns() const { return m_columns; }
    QSizeF size() const;
    QRectF pageRect(qsizetype page) const;
    /// The page under a point or, between pages, the one before.
    qsizetype pageAt(QPointF point) const;
    /// The page of which most is in \a visible; \a preferred when it is no worse than any other.
    qsizetype mostVisible(const QRectF &visible, qsizetype preferred) const;
    qsizetype firstOfRow(qsizetype page) const { return page - page % m_columns; }

private:
    double scaleFor(double columns, bool wholeHeight) const;
    double visibleArea(qsizetype page, const QRectF &visible) const;
    QSizeF cell() const;

    Terms m_terms;
    double m_scale = 1;
    int m_columns = 1;
};

} // namespace obelmark
