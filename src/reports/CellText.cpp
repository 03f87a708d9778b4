#include "reports/CellText.h"

#include "reports/ReportFont.h"
#include <QTextLayout>

namespace obelmark {

CellText::CellText(const ReportFont &font, QStringView text, double width, bool alignRight)
    : m_font(font), m_text(text), m_width(width), m_alignRight(alignRight)
{
    const auto plainWidth = font.plainWidth(text);
    if (!plainWidth || *plainWidth > width)
        layOut();
    else if (alignRight)
        m_left = width - *plainWidth;
}

CellText::~CellText() = default;

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
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout->setTextOption(option);
    m_layout->setCacheEnabled(true);
    m_layout->beginLayout();
    double top = 0;
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLineWidth(m_width);
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

int CellText::lineAt(qsizetype position) const
{
    return m_layout ? m_layout->lineForTextPosition(int(position)).lineNumber() : 0;
}

QList<QRectF> CellText::rectsOf(qsizetype position, qsizetype length) const
{
    const double height = m_font.lineHeight();
    QList<QRectF> rects;
    if (!m_layout) {
        const double left = m_left + m_font.plainWidth(m_text.first(position)).value();
        rects << QRectF(left, 0, m_font.plainWidth(m_text.sliced(position, length)).value(), height);
        return rects;
    }
    for (int i = lineAt(position), last = lineAt(position + length - 1); i <= last; ++i) {
        const QTextLine line = m_layout->lineAt(i);
        const double from = line.cursorToX(int(qMax<qsizetype>(position, line.textStart())));
        const double to =
            line.cursorToX(int(qMin<qsizetype>(position + length, line.textStart() + line.textLength())));
        rects << QRectF(QPointF(from, i * height), QPointF(to, (i + 1) * height)).normalized();
    }
    return rects;
}

} // namespace obelmark
