// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace obelmark {

/// What a cell shows of a row of the query.
enum class CellKind {
    Plain,         ///< the value as it is; null is an empty cell
    MoneyOrBlank,  ///< the amount as currency; null is an empty cell, a blank one on the web
    MoneyOrZero,   ///< the amount as currency; null counts as 0
    TimesQuantity, ///< the amount (null counts as 0) times "quantity" as currency; empty without a quantity
    Mark,          ///< an asterisk when the value is true
};

/// One cell of a report's rows.
struct ReportCell
{
    QString column; ///< of the query
    CellKind kind = CellKind::Plain;
    bool right = false; ///< on the web: at the right edge of its column
};

/// What a report adds up; null counts as 0. By name, as TotalsRow has them.
struct ReportSums
{
    bool quantity = false; ///< {quantity}: "quantity"
    QString total = {};    ///< {total}: this column of money
    /// {paid}: "pricepaid", {value}: this column of money, each times quantity, and {difference}: the second
    /// minus the first
    QString value = {};
};

/// A row behind the last one of the query, in the three forms that it is written in.
struct TotalsRow
{
    QString format; ///< preview: its columns; empty: those of the rows above
    QString preview;
    QString text;
    QString html;
};

/// One of the reports of the program: everything that sets it apart from the others. Headings are separated
/// by "|".
struct CannedReport
{
    QString textFile; ///< the proposed names of its files
    QString htmlFile;
    QString htmlFilter = QStringLiteral("Html Files (*.htm)|*.htm|All Files (*.*)|*.*");

    QString title; ///< in the page header
    std::optional<QString> htmlTitle = {};
    std::optional<QString> htmlTableTitle = {};
    int htmlTitleColumns = 0; ///< that the table's title spans

    QString TableFormat;
    QString headings;
    std::optional<QString> htmlHeadings = {};
    QString htmlHeadingsEnd = QStringLiteral("</th></tr>");

    QString query;
    QList<ReportCell> cells;

    ReportSums sums = {};
    QList<TotalsRow> totalsRows = {};
    bool plainTextTotals =
        false; ///< text file: amounts of the totals without symbol, groups and fixed decimals

    QString emptyMessage;
};

} // namespace obelmark
