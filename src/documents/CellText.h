// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QRectF>
#include <QStringView>
#include <memory>
#include <optional>

class QPainter;
class QTextLayout;

namespace obelmark {

class PlainText;
class ReportFont;

/// The text of one cell in its column. A single word, such as an amount, that does not fit is squeezed: a
/// number continued on the next line would be misread. Other text wraps at blanks, or anywhere in a word that
/// is too long; its own line breaks are kept.
class CellText
{
public:
    /// \a text is kept as a view; \a width is the column's in twips.
    CellText(const ReportFont &font, QStringView text, double width, bool alignRight);
    ~CellText();

    int lineCount() const;
    /// Paints \a count lines from \a firstLine on, that one at \a topLeft. A plain line goes to \a plain, to
    /// be painted with the others of its page.
    void paint(QPainter &painter, PlainText &plain, QPointF topLeft, int firstLine, int count) const;
    /// The line on which the letter at \a position stands.
    int lineAt(qsizetype position) const;
    /// Where a stretch of the text stands, one rectangle for each line; the first line's top left is the
    /// origin.
    QList<QRectF> rectsOf(qsizetype position, qsizetype length) const;

private:
    double squeezeFor(std::optional<double> plainWidth) const;
    void layOut();
    void paintSqueezed(QPainter &painter, QPointF topLeft) const;

    const ReportFont &m_font;
    QStringView m_text;
    double m_width;
    bool m_alignRight;
    double m_left = 0;                     ///< of plain text
    double m_squeeze = 1;                  ///< the part of its own width that the text is drawn in
    std::unique_ptr<QTextLayout> m_layout; ///< none for plain text
};

} // namespace obelmark
