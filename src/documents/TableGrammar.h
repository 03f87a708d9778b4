// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QStringView>

namespace obelmark {

/// A column of a report's table.
struct TableColumn
{
    double width; ///< in twips, above 0
    bool alignRight = false;

    bool operator==(const TableColumn &) const = default;
};

/// The width of a column whose own is missing or no number, and of the columns for cells beyond the last one.
inline constexpr double defaultColumnWidth = 1440;
/// A row may have so many cells beyond its columns; the last one then holds the rest of the row, "|" between.
inline constexpr int mostExtraCells = 8;

/// The columns of "2880|1440|>1123.2;": widths in twips, ">" before one aligns its column to the right.
QList<TableColumn> parseTableFormat(QStringView format);

/// The rows of a table's body. Each ends with ";" (the last one need not); nothing stands for itself, so that
/// a ";" in a value ends its row.
QList<QStringView> splitRows(QStringView body);

/// The cells of a row, separated by "|".
QList<QStringView> splitCells(QStringView row);

} // namespace obelmark
