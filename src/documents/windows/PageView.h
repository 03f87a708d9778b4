// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/PageArrangement.h"
#include "documents/ReportDocument.h"
#include <QAbstractScrollArea>

namespace obelmark {

/// The pages of a report, to scroll through and to zoom. Nothing is kept of a page that is not on screen.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit PageView(QWidget *parent = nullptr);

    /// The document must outlive the view.
    void setDocument(const ReportDocument &document);
    /// To be called when pages of the document have changed.
    void documentChanged();
    /// To be called when another report has begun.
    void rewind();

    qsizetype pageCount() const { return m_arrangement.terms().pages; }
    /// Counted from 0; 0 too when there is none.
    qsizetype currentPage() const { return m_current; }
    /// The nearest page there is.
    void goToPage(qsizetype page);
    /// The pages of the next row where several are shown at once, else the next page.
    void goToNext() { step(1); }
    void goToPrevious() { step(-1); }

    /// The first line of the current page that is in view.
    ReportPlace firstVisible() const;
    /// Brings a line into view, with the top of its page when there is room for both.
    void goTo(const ReportPlace &place);

    Zoom zoom() const { return m_arrangement.terms().zoom; }
    double relativeScale() const { return m_arrangement.relativeScale(); }
    void setZoom(Zoom zoom);
    /// Makes the pages larger by that factor about the middle of the view.
    void zoomBy(double factor);

    /// Marks every place of that text, and \a current among them.
    void highlight(const QString &text, const std::optional<ReportMatch> &current);
    /// Brings a place on a page, in twips, into view.
    void showPlace(qsizetype page, const QRectF &place);

signals:
    /// Page, page count, zoom or scale are others now.
    void changed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    /// A place on a page, in twips, and where in the view it is.
    struct Anchor
    {
        qsizetype page;
        QPointF twips;
        QPointF inView;
    };

    bool isWholePages() const;
    QPointF offset() const;
    QRectF visible() const;
    Anchor anchorAt(QPointF inView) const;
    Anchor topOfCurrentPage() const;
    void arrange(Zoom zoom, double freeScale, const Anchor &anchor);
    void zoomBy(double factor, QPointF inView);
    void scrollTo(QPointF topLeft);
    void setCurrent(qsizetype page);
    void step(int rows);
    void paintPage(QPainter &painter, qsizetype page) const;
    void describePage();

    const ReportDocument *m_document = nullptr;
    PageArrangement m_arrangement;
    qsizetype m_current = 0;
    int m_wheel = 0; ///< turned so far, in eighths of a degree
    bool m_isArranging = false;
    QString m_text;
    std::optional<ReportMatch> m_match;
    /// The line gone to last, as long as nobody has moved away from where it was shown.
    struct Shown
    {
        ReportPlace place;
        qsizetype page;
        QPointF offset;
    };
    std::optional<Shown> m_shown;
};

} // namespace obelmark
