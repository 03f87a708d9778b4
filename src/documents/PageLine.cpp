// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PageLine.h"

#include "documents/ReportFont.h"
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

namespace obelmark {

using namespace Qt::StringLiterals;

static constexpr double gap = 240;
static constexpr int mostCentreLines = 3;
static constexpr qsizetype widestPageNumber = 88888;

static QString withPage(QString text, qsizetype page)
{
    return text.replace("%d"_L1, QString::number(page));
}

PageLine::PageLine(const ReportFont &font, const QString &parts, double width)
    : m_font(&font), m_width(width), m_sideRoom((width - 2 * gap) / 3)
{
    const QStringList all = parts.simplified().split(u'|');
    m_parts[Left] = all.first();
    if (all.size() == 2)
        m_parts[Centre] = all.last();
    if (all.size() > 2) {
        m_parts[Centre] = all.mid(1, all.size() - 2).join(u'|');
        m_parts[Right] = all.last();
    }
    double side = 0;
    for (const Part part : {Left, Right})
        side = qMax(side, qMin(widthOf(m_parts[part]), m_sideRoom));
    wrapCentre(width - 2 * (side > 0 ? side + gap : 0));
}

double PageLine::widthOf(const QString &text) const
{
    return QFontMetricsF(m_font->font()).horizontalAdvance(withPage(text, widestPageNumber));
}

void PageLine::wrapCentre(double room)
{
    const QString text = m_parts[Centre];
    const QFontMetricsF metrics(m_font->font());
    // Numbers of several lengths take that place.
    if (widthOf(text) <= room || text.contains("%d"_L1)) {
        m_centreLines = QStringList(metrics.elidedText(text, Qt::ElideRight, room));
        return;
    }
    QTextLayout layout(text, m_font->font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(room);
        const bool isLast = m_centreLines.size() + 1 == mostCentreLines;
        const QString rest = text.mid(line.textStart());
        m_centreLines << (isLast ? metrics.elidedText(rest, Qt::ElideRight, room)
                                 : rest.first(line.textLength()).trimmed());
        if (isLast)
            break;
    }
    layout.endLayout();
}

double PageLine::height() const
{
    const bool isEmpty = m_parts[Left].isEmpty() && m_parts[Centre].isEmpty() && m_parts[Right].isEmpty();
    return isEmpty ? 0 : double(m_centreLines.size()) * m_font->lineHeight();
}

void PageLine::paint(QPainter &painter, QPointF topLeft, qsizetype page) const
{
    if (height() <= 0)
        return;
    painter.setFont(m_font->font());
    const QFontMetricsF metrics(m_font->font());
    const auto paintLine = [&](const QString &text, double left, int line) {
        painter.drawText(topLeft + QPointF(left, m_font->ascent() + line * m_font->lineHeight()), text);
    };
    const auto side = [&](Part part) {
        return metrics.elidedText(withPage(m_parts[part], page), Qt::ElideRight, m_sideRoom);
    };
    paintLine(side(Left), 0, 0);
    const QString right = side(Right);
    paintLine(right, m_width - metrics.horizontalAdvance(right), 0);
    for (int line = 0; line < m_centreLines.size(); ++line) {
        const QString text = withPage(m_centreLines[line], page);
        paintLine(text, (m_width - metrics.horizontalAdvance(text)) / 2, line);
    }
}

} // namespace obelmark
