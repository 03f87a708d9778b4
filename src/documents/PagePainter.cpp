// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PagePainter.h"

#include "documents/CellText.h"
#include "documents/ReportLayout.h"
#include <QPainter>

namespace obelmark {

static constexpr double smallestLetters = 3; // device pixels
static constexpr QRgb barColour = 0xFFB0B0B0;
static constexpr QRgb ruleColour = 0xFFC8C8C8;
static constexpr double ruleWidth = 10; // twips

namespace {

class PagePainter
{
public:
    PagePainter(QPainter &painter, const ReportLayout &layout)
        : m_painter(painter), m_layout(layout), m_plain(layout.bodyFont()),
          m_isTiny(
              painter.deviceTransform().map(QLineF(0, 0, 0, layout.bodyFont().font().pixelSize())).length() <
              smallestLetters)
    {
    }

    void paint(qsizetype page)
    {
        const QSizeF paper = m_layout.page().size();
        const QRectF clip = m_painter.hasClipping() ? m_painter.clipBoundingRect() : QRectF(QPointF(), paper);
        paintHeading();
        m_layout.forEachRow(page, clip.top(), clip.bottom(), [this](const auto &row) {
            paintRow(row);
            paintRule(row);
        });
        m_painter.setPen(Qt::black);
        m_plain.paint(m_painter);
        m_layout.header().paint(m_painter, {pageMarginX, pageMarginY}, page + 1);
        m_layout.footer().paint(m_painter, {pageMarginX, m_layout.footerTop()}, page + 1);
    }

private:
    void paintHeading()
    {
        const ReportLayout::Heading &heading = m_layout.heading();
        if (heading.lineCount == 0)
            return;
        const PlacedColumn &last = heading.columns->back();
        m_painter.fillRect(
            QRectF(pageMarginX, heading.top, last.left + last.width, m_layout.rowHeight(heading.lineCount)),
            QColor::fromRgb(heading.shade));
        paintRow(heading);
    }

    void paintRow(const ReportLayout::RowPart &row)
    {
        m_painter.setPen(Qt::black);
        auto column = row.columns->begin();
        for (const QStringView text : row.cells()) {
            if (!text.isEmpty())
                paintCell(row, *column, text);
            ++column;
        }
    }

    void paintCell(const ReportLayout::RowPart &row, const PlacedColumn &column, QStringView text)
    {
        const QPointF topLeft(pageMarginX + column.textLeft(), row.textTop());
        if (m_isTiny) {
            paintBar(topLeft, column, text);
            return;
        }
        const CellText cell(m_layout.bodyFont(), text, column.textWidth(), column.alignRight);
        cell.paint(m_painter, m_plain, topLeft, row.firstLine, row.lineCount);
    }

    void paintBar(QPointF topLeft, const PlacedColumn &column, QStringView text)
    {
        const ReportFont &font = m_layout.bodyFont();
        const double width = qMin(column.textWidth(), font.plainWidth(text).value_or(column.textWidth()));
        if (column.alignRight)
            topLeft.rx() += column.textWidth() - width;
        const double height = font.lineHeight();
        m_painter.fillRect(QRectF(topLeft + QPointF(0, height / 4), QSizeF(width, height / 2)),
                           QColor::fromRgb(barColour));
    }

    void paintRule(const ReportLayout::RowPart &row)
    {
        if (m_isTiny)
            return;
        const PlacedColumn &last = row.columns->back();
        const double y = row.top + m_layout.rowHeight(row.lineCount);
        m_painter.setPen(QPen(QColor::fromRgb(ruleColour), ruleWidth));
        m_painter.drawLine(QPointF(pageMarginX, y), QPointF(pageMarginX + last.left + last.width, y));
    }

    QPainter &m_painter;
    const ReportLayout &m_layout;
    PlainText m_plain;
    bool m_isTiny;
};

} // namespace

void paintPage(QPainter &painter, const ReportLayout &layout, qsizetype page)
{
    PagePainter(painter, layout).paint(page);
}

} // namespace obelmark
