// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/ReportSearch.h"

#include "documents/CellText.h"
#include "documents/ReportLayout.h"

namespace obelmark {

static constexpr Qt::CaseSensitivity anyCase = Qt::CaseInsensitive;

static CellText cellText(const ReportLayout &layout, const PlacedColumn &column, QStringView text)
{
    return CellText(layout.bodyFont(), text, column.textWidth(), column.alignRight);
}

/// Calls \a visit for every place of the text in a row, in order.
static void forEachMatch(const QList<QStringView> &cells, const QString &text,
                         const std::function<void(qsizetype cell, qsizetype at)> &visit)
{
    for (qsizetype cell = 0; cell < cells.size(); ++cell) {
        for (qsizetype at = cells[cell].indexOf(text, 0, anyCase); at >= 0;
             at = cells[cell].indexOf(text, at + text.size(), anyCase))
            visit(cell, at);
    }
}

std::optional<ReportMatch> findText(const ReportLayout &layout, const QString &text, const ReportMatch &from,
                                    SearchDirection direction)
{
    if (text.isEmpty())
        return {};
    const bool forwards = direction == SearchDirection::Forwards;
    std::optional<ReportMatch> best;
    for (qsizetype row = from.row; row >= 0 && row < layout.rows().size() && !best;
         row += forwards ? 1 : -1) {
        const QString rowText = layout.rows().text(row);
        if (!rowText.contains(text, anyCase))
            continue;
        forEachMatch(cellsOf(rowText), text, [&](qsizetype cell, qsizetype at) {
            const ReportMatch match{row, cell, at};
            if (forwards ? match > from && !best : match < from)
                best = match;
        });
    }
    return best;
}

int lineOf(const ReportLayout &layout, const ReportMatch &match)
{
    const PlacedColumns &columns = layout.columnsOf(match.row);
    const QString row = layout.rows().text(match.row);
    const QList<QStringView> cells = cellsOf(row);
    return cellText(layout, columns[std::size_t(match.cell)], cells[match.cell]).lineAt(match.at);
}

QList<ReportDocument::MatchRect> matchRects(const ReportLayout &layout, qsizetype page, const QString &text)
{
    QList<ReportDocument::MatchRect> rects;
    if (text.isEmpty())
        return rects;
    const double lineHeight = layout.bodyFont().lineHeight();
    layout.forEachRow(page, 0, layout.page().size().height(), [&](const ReportLayout::RowPart &row) {
        const QRectF lines(0, row.firstLine * lineHeight, layout.page().size().width(),
                           row.lineCount * lineHeight);
        const QList<QStringView> cells = row.cells();
        forEachMatch(cells, text, [&](qsizetype cell, qsizetype at) {
            const PlacedColumn &column = (*row.columns)[std::size_t(cell)];
            const QPointF origin(pageMarginX + column.textLeft(), row.textTop() - lines.top());
            for (const QRectF &rect : cellText(layout, column, cells[cell]).rectsOf(at, text.size())) {
                if (lines.contains(QPointF(lines.width() / 2, rect.center().y())))
                    rects.append({{row.row, cell, at}, rect.translated(origin)});
            }
        });
    });
    return rects;
}

} // namespace obelmark
