// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/ReportLayout.h"

#include "documents/CellText.h"
#include <algorithm>
#include <optional>
#include <stdexcept>

namespace obelmark {

using namespace Qt::StringLiterals;

static constexpr double bodyPoints = 11.25;
static constexpr double headerPoints = 14.25;
static constexpr double cellPadding = 60; // twips
static constexpr double rowPadding = 40;  // twips, half of it above the text
static constexpr double frameGap = 120;   // twips between header or footer and body

double PlacedColumn::textLeft() const
{
    return left + qMin(cellPadding, width / 4);
}

double PlacedColumn::textWidth() const
{
    return width - 2 * qMin(cellPadding, width / 4);
}

QList<QStringView> ReportLayout::RowPart::cells() const
{
    return cellsOf(text);
}

double ReportLayout::RowPart::textTop() const
{
    return top + rowPadding / 2;
}

ReportLayout::ReportLayout(const PageSetup &page)
    : m_bodyFont(bodyPoints, QFont::Normal), m_headerFont(headerPoints, QFont::Bold), m_page(page),
      m_header(m_headerFont, {}, 0), m_footer(m_bodyFont, {}, 0)
{
}

double ReportLayout::textWidth() const
{
    return m_page.size().width() - 2 * pageMarginX;
}

double ReportLayout::footerTop() const
{
    return m_page.size().height() - pageMarginY - m_footer.height();
}

void ReportLayout::start(const ReportPageSetup &setup)
{
    m_setup = setup;
    m_page.landscape = setup.landscape;
    m_rows.clear();
    m_formats.clear();
    m_formatNumbers.clear();
    layOutFrame();
}

/// A table that is wider than the page gets narrower columns, in proportion: all of it is there.
PlacedColumns ReportLayout::place(const QList<TableColumn> &columns) const
{
    double total = 0;
    for (const TableColumn &column : columns)
        total += column.width;
    const double scale = qMin(1.0, textWidth() / total);
    PlacedColumns placed;
    double left = 0;
    for (const TableColumn &column : columns) {
        placed.push_back({left, column.width * scale, column.alignRight});
        left += column.width * scale;
    }
    return placed;
}

int ReportLayout::formatOf(QStringView text, qsizetype cells)
{
    // Nearly every row has the format of the one before.
    const auto number = [&](qsizetype extra) {
        const auto found = m_formatNumbers.constFind({text.toString(), extra});
        if (found != m_formatNumbers.cend())
            return *found;
        if (m_formats.size() == DocumentRows::mostFormats)
            throw std::length_error("a report has too many table formats");
        Format format{parseTableFormat(text), {}};
        format.columns.insert(format.columns.size(), extra, TableColumn{defaultColumnWidth});
        format.placed = place(format.columns);
        m_formats.push_back(std::move(format));
        const int last = int(m_formats.size()) - 1;
        m_formatNumbers.insert({text.toString(), extra}, last);
        return last;
    };
    const int base = number(0);
    const qsizetype extra = cells - m_formats[std::size_t(base)].columns.size();
    return extra > 0 ? number(qMin<qsizetype>(extra, mostExtraCells)) : base;
}

int ReportLayout::countLines(QStringView row, const PlacedColumns &columns) const
{
    int lines = 1;
    const QList<QStringView> cells = cellsOf(row);
    for (std::size_t i = 0; i < std::size_t(cells.size()); ++i) {
        const CellText cell(m_bodyFont, cells[qsizetype(i)], columns[i].textWidth(), columns[i].alignRight);
        lines = qMax(lines, cell.lineCount());
    }
    return qMin(lines, DocumentRows::mostLines);
}

void ReportLayout::addTable(QStringView format, QStringView body)
{
    for (const QStringView row : splitRows(body))
        addRow(format, splitCells(row));
}

/// The cells as DocumentRows has them: those beyond the columns are part of the last one, and a line break is
/// one letter.
QString ReportLayout::rowText(const QList<QStringView> &cells, qsizetype columns) const
{
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += i < columns ? cellSeparator : u'|';
        const qsizetype begin = text.size();
        text += cells[i];
        if (const QStringView cell = cells[i]; cell.contains(u'\r') || cell.contains(cellSeparator)) {
            text.truncate(begin);
            text += cell.toString()
                        .replace("\r\n"_L1, "\n"_L1)
                        .replace(u'\r', u'\n')
                        .replace(cellSeparator, u' ');
        }
    }
    return text;
}

void ReportLayout::addRow(QStringView format, const QList<QStringView> &cells)
{
    const int number = formatOf(format, cells.size());
    const PlacedColumns &columns = m_formats[std::size_t(number)].placed;
    const QString text = rowText(cells, qsizetype(columns.size()));
    const int lines = countLines(text, columns);
    m_rows.add(text, {number, lines});
    m_breaker.add(lines);
}

/// Everything of the pages but the rows; no row is on a page afterwards.
void ReportLayout::layOutFrame()
{
    m_header = PageLine(m_headerFont, m_setup.header, textWidth());
    m_footer = PageLine(m_bodyFont, m_setup.footer, textWidth());

    double top = pageMarginY;
    if (m_header.height() > 0)
        top += m_header.height() + frameGap;
    double bottom = footerTop();
    if (m_footer.height() > 0)
        bottom -= frameGap;

    m_heading = {};
    m_heading.top = top;
    BodyMeasures measures{bottom - top, m_bodyFont.lineHeight(), rowPadding};
    if (m_setup.heading) {
        const QList<QStringView> rows = splitRows(m_setup.heading->row);
        const QList<QStringView> cells = splitCells(rows.isEmpty() ? QStringView() : rows.front());
        const int format = formatOf(m_setup.heading->format, cells.size());
        m_heading.columns = &m_formats[std::size_t(format)].placed;
        m_heading.text = rowText(cells, qsizetype(m_heading.columns->size()));
        // However long the headings are, half of the page is for the rows.
        m_heading.lineCount = qMin(countLines(m_heading.text, *m_heading.columns),
                                   qMax(1, measures.linesIn(measures.height / 2)));
        m_heading.shade = m_setup.heading->shade;
        measures.height -= measures.rowHeight(m_heading.lineCount);
    }
    m_breaker.start(measures);
}

void ReportLayout::setPage(const PageSetup &page)
{
    m_page = page;
    std::vector<bool> isPlacedAnew;
    for (Format &format : m_formats) {
        PlacedColumns placed = place(format.columns);
        isPlacedAnew.push_back(placed != format.placed);
        format.placed = std::move(placed);
    }
    layOutFrame();
    const bool isAnyPlacedAnew = std::ranges::find(isPlacedAnew, true) != isPlacedAnew.end();
    for (qsizetype row = 0; row < m_rows.size(); ++row) {
        DocumentRows::Look look = m_rows.look(row);
        if (isAnyPlacedAnew && isPlacedAnew[std::size_t(look.format)]) {
            look.lines = countLines(m_rows.text(row), columnsOf(row));
            m_rows.setLines(row, look.lines);
        }
        m_breaker.add(look.lines);
    }
}

const PlacedColumns &ReportLayout::columnsOf(qsizetype row) const
{
    return m_formats[std::size_t(m_rows.look(row).format)].placed;
}

ReportPlace ReportLayout::placeAt(qsizetype page, double top) const
{
    std::optional<RowPart> first;
    forEachRow(page, top, m_page.size().height(), [&](const RowPart &row) {
        if (!first)
            first = row;
    });
    if (!first)
        return {qsizetype(m_breaker.pageStart(page).row), 0};
    const double above = (top - first->textTop()) / m_bodyFont.lineHeight();
    const int line = first->firstLine + qBound(0, int(above), first->lineCount - 1);
    return {first->row, double(line) / m_rows.look(first->row).lines};
}

PagePosition ReportLayout::positionOf(const ReportPlace &place) const
{
    if (place.row >= m_rows.size())
        return {};
    const int line = int(place.part * m_rows.look(place.row).lines);
    PagePosition position{pageOf(place.row, line), 0};
    forEachRow(position.page, 0, m_page.size().height(), [&](const RowPart &row) {
        if (row.row == place.row)
            position.top = row.top + (line - row.firstLine) * m_bodyFont.lineHeight();
    });
    return position;
}

void ReportLayout::forEachRow(qsizetype page, double top, double bottom,
                              const std::function<void(const RowPart &)> &visit) const
{
    const PageBreaker::Start end = m_breaker.pageEnd(page);
    PageBreaker::Start at = m_breaker.pageStart(page);
    double y = m_heading.top + (m_heading.lineCount > 0 ? rowHeight(m_heading.lineCount) : 0);
    for (; at < end && y < bottom; at = {at.row + 1, 0}) {
        const int lastLine = at.row == end.row ? int(end.line) : m_rows.look(at.row).lines;
        const int lines = lastLine - int(at.line);
        const double height = rowHeight(lines);
        if (y + height > top)
            visit({m_rows.text(at.row), &columnsOf(at.row), y, int(at.line), lines, qsizetype(at.row)});
        y += height;
    }
}

} // namespace obelmark
