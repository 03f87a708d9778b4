// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/DocumentRows.h"
#include "documents/PageBreaker.h"
#include "documents/PageLine.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include "documents/ReportFont.h"
#include "documents/TableGrammar.h"
#include <QHash>
#include <deque>
#include <functional>
#include <vector>

namespace obelmark {

/// A column where it stands on the page, in twips from the left margin; the text keeps cellPadding from both
/// of its edges.
struct PlacedColumn
{
    double left;
    double width;
    bool alignRight;

    double textLeft() const;
    double textWidth() const;
    bool operator==(const PlacedColumn &) const = default;
};
using PlacedColumns = std::vector<PlacedColumn>;

/// What stands where in a report: its rows, dealt out to pages as they are added.
class ReportLayout
{
public:
    /// A row, or as many of its lines as are on one page.
    struct RowPart
    {
        QString text; ///< as DocumentRows has it
        const PlacedColumns *columns;
        double top; ///< in twips, on the page
        int firstLine;
        int lineCount;
        qsizetype row;

        QList<QStringView> cells() const;
        double textTop() const;
    };
    /// The heading row; without lines when there is none.
    struct Heading : RowPart
    {
        QRgb shade = 0;
    };

    explicit ReportLayout(const PageSetup &page);

    void start(const ReportPageSetup &setup);
    void addTable(QStringView format, QStringView body);
    void addRow(QStringView format, const QList<QStringView> &cells);

    const PageSetup &page() const { return m_page; }
    /// Deals the rows out anew.
    void setPage(const PageSetup &page);

    qsizetype pageCount() const { return m_breaker.pageCount(); }
    /// Calls \a visit for each row of a page, from above, that reaches into the height between \a top and
    /// \a bottom.
    void forEachRow(qsizetype page, double top, double bottom,
                    const std::function<void(const RowPart &)> &visit) const;
    double rowHeight(int lines) const { return m_breaker.measures().rowHeight(lines); }

    const DocumentRows &rows() const { return m_rows; }
    const PlacedColumns &columnsOf(qsizetype row) const;
    PageBreaker::Start pageStart(qsizetype page) const { return m_breaker.pageStart(page); }
    qsizetype pageOf(qsizetype row, int line) const
    {
        return m_breaker.pageOf({quint32(row), quint32(line)});
    }
    /// The first line that reaches below \a top on a page, and where such a line is.
    ReportPlace placeAt(qsizetype page, double top) const;
    PagePosition positionOf(const ReportPlace &place) const;

    const ReportFont &bodyFont() const { return m_bodyFont; }
    const Heading &heading() const { return m_heading; }
    const PageLine &header() const { return m_header; }
    const PageLine &footer() const { return m_footer; }
    const QString &headerParts() const { return m_setup.header; }
    double footerTop() const;

private:
    struct Format
    {
        QList<TableColumn> columns;
        PlacedColumns placed;
    };

    double textWidth() const;
    PlacedColumns place(const QList<TableColumn> &columns) const;
    int formatOf(QStringView text, qsizetype cells);
    int countLines(QStringView row, const PlacedColumns &columns) const;
    QString rowText(const QList<QStringView> &cells, qsizetype columns) const;
    void layOutFrame();

    ReportFont m_bodyFont;
    ReportFont m_headerFont;
    PageSetup m_page;
    ReportPageSetup m_setup;
    PageLine m_header;
    PageLine m_footer;
    Heading m_heading;
    std::deque<Format> m_formats;                              ///< one never moves
    QHash<std::pair<QString, qsizetype>, int> m_formatNumbers; ///< by text and number of extra cells
    DocumentRows m_rows;
    PageBreaker m_breaker;
};

} // namespace obelmark
