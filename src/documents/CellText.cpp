// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/CellText.h"

#include "documents/ReportFont.h"
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextLayout>

namespace obelmark {

static constexpr qsizetype longestSqueezed = 24; // letters
static constexpr double tightestSqueeze = 0.45;  // letters that are narrower yet can hardly be read

static bool isDash(QChar letter)
{
    return letter.category() == QChar::Punctuation_Dash;
}

/// Whether the text is one that nobody would continue on the next line. The sign before an amount is no
/// hyphen.
static bool isOneWord(QStringView text)
{
    if (text.size() > longestSqueezed || text.contains(u'\n'))
        return false;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text.data(), text.size());
    for (auto at = breaks.toNextBoundary(); at > 0 && at < text.size(); at = breaks.toNextBoundary()) {
        const bool isBehindSign = isDash(text[at - 1]) && (at == 1 || !text[at - 2].isLetterOrNumber());
        if (!isBehindSign)
            return false;
    }
    return true;
}

CellText::CellText(const ReportFont &font, QStringView text, double width, bool alignRight)
    : m_font(font), m_text(text), m_width(width), m_alignRight(alignRight)
{
    const auto plainWidth = font.plainWidth(text);
    if (plainWidth && *plainWidth <= width) {
        if (alignRight)
            m_left = width - *plainWidth;
        return;
    }
    m_squeeze = squeezeFor(plainWidth);
    if (!plainWidth || m_squeeze >= 1)
        layOut();
}

CellText::~CellText() = default;

/// 1 for a text that fits or wraps.
double CellText::squeezeFor(std::optional<double> plainWidth) const
{
    if (!isOneWord(m_text))
        return 1;
    const double own =
        plainWidth ? *plainWidth : QFontMetricsF(m_font.font()).horizontalAdvance(m_text.toString());
    return own > m_width && own * tightestSqueeze <= m_width ? m_width / own : 1;
}

void CellText::layOut()
{
    QString text = m_text.toString();
    for (QChar &letter : text) {
        if (letter == u'\n')
            letter = QChar::LineSeparator;
        else if (letter.isSpace() && letter != QChar::Nbsp)
            letter = u' '; // a tabulator would reach into the next column
    }
    m_layout = std::make_unique<QTextLayout>(text, m_font.font());
    QTextOption option(Qt::AlignAbsolute | (m_alignRight ? Qt::AlignRight : Qt::AlignLeft));
    option.setWrapMode(m_squeeze < 1 ? QTextOption::NoWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout->setTextOption(option);
    m_layout->setCacheEnabled(true);
    m_layout->beginLayout();
    double top = 0;
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLineWidth(m_width / m_squeeze);
        // Letters of another font stand on the same baseline, and all lines at the same distance.
        line.setPosition({0, top + m_font.ascent() - line.ascent()});
        top += m_font.lineHeight();
    }
    m_layout->endLayout();
}

int CellText::lineCount() const
{
    return m_layout ? qMax(1, m_layout->lineCount()) : 1;
}

void CellText::paint(QPainter &painter, PlainText &plain, QPointF topLeft, int firstLine, int count) const
{
    if (m_squeeze < 1) {
        if (firstLine == 0)
            paintSqueezed(painter, topLeft);
        return;
    }
    if (!m_layout) {
        if (firstLine == 0)
            plain.add(topLeft + QPointF(m_left, m_font.ascent()), m_text);
        return;
    }
    const QPointF origin = topLeft - QPointF(0, firstLine * m_font.lineHeight());
    const int end = qMin(firstLine + count, m_layout->lineCount());
    for (int line = firstLine; line < end; ++line)
        m_layout->lineAt(line).draw(&painter, origin);
}

void CellText::paintSqueezed(QPainter &painter, QPointF topLeft) const
{
    const QTransform unsqueezed = painter.transform();
    painter.translate(topLeft);
    painter.scale(m_squeeze, 1);
    if (m_layout) {
        m_layout->lineAt(0).draw(&painter, {});
    } else {
        PlainText plain(m_font);
        plain.add({0, m_font.ascent()}, m_text);
        plain.paint(painter);
    }
    painter.setTransform(unsqueezed);
}

int CellText::lineAt(qsizetype position) const
{
    return m_layout ? m_layout->lineForTextPosition(int(position)).lineNumber() : 0;
}

QList<QRectF> CellText::rectsOf(qsizetype position, qsizetype length) const
{
    const double height = m_font.lineHeight();
    QList<QRectF> rects;
    if (!m_layout) {
        const double left = m_left + m_font.plainWidth(m_text.first(position)).value() * m_squeeze;
        const double width = m_font.plainWidth(m_text.sliced(position, length)).value() * m_squeeze;
        rects << QRectF(left, 0, width, height);
        return rects;
    }
    for (int i = lineAt(position), last = lineAt(position + length - 1); i <= last; ++i) {
        const QTextLine line = m_layout->lineAt(i);
        const double from = line.cursorToX(int(qMax<qsizetype>(position, line.textStart())));
        const double to =
            line.cursorToX(int(qMin<qsizetype>(position + length, line.textStart() + line.textLength())));
        rects << QRectF(QPointF(from * m_squeeze, i * height), QPointF(to * m_squeeze, (i + 1) * height))
                     .normalized();
    }
    return rects;
}

} // namespace obelmark
