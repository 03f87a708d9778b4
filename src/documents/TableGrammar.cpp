// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/TableGrammar.h"

namespace obelmark {

static TableColumn parseColumn(QStringView text)
{
    text = text.trimmed();
    TableColumn column{defaultColumnWidth, text.startsWith(u'>')};
    bool isNumber = false;
    const double width = (column.alignRight ? text.sliced(1) : text).toDouble(&isNumber);
    // Text in a column of no width would be lost.
    if (isNumber && width > 0)
        column.width = width;
    return column;
}

QList<TableColumn> parseTableFormat(QStringView format)
{
    if (const qsizetype end = format.indexOf(u';'); end >= 0)
        format.truncate(end);
    QList<TableColumn> columns;
    if (format.trimmed().isEmpty())
        return columns;
    for (const QStringView text : format.split(u'|'))
        columns.append(parseColumn(text));
    return columns;
}

QList<QStringView> splitRows(QStringView body)
{
    QList<QStringView> rows;
    while (!body.isEmpty()) {
        qsizetype end = body.indexOf(u';');
        if (end < 0)
            end = body.size();
        rows.append(body.first(end));
        body = body.sliced(qMin(end + 1, body.size()));
    }
    return rows;
}

QList<QStringView> splitCells(QStringView row)
{
    return row.split(u'|');
}

} // namespace obelmark
