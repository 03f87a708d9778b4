// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/windows/FieldList.h"

#include "engine/language/TextFold.h"
#include <QListWidget>
#include <QSignalBlocker>

namespace obelmark {

namespace {

void insertField(QListWidget &list, int row, const QString &caption, int specid)
{
    auto *item = new QListWidgetItem(caption);
    item->setData(Qt::UserRole, specid);
    list.insertItem(row, item);
}

} // namespace

int fieldId(const QListWidgetItem &item)
{
    return item.data(Qt::UserRole).toInt();
}

QList<int> fieldIds(const QListWidget &list)
{
    QList<int> ids;
    for (int row = 0; row < list.count(); ++row)
        ids << fieldId(*list.item(row));
    return ids;
}

QListWidgetItem *selectedField(const QListWidget &list)
{
    return list.selectedItems().value(0);
}

void appendField(QListWidget &list, const QString &caption, int specid)
{
    insertField(list, list.count(), caption, specid);
}

void insertAlphabetically(QListWidget &list, const QString &caption, int specid)
{
    int row = 0;
    while (row < list.count() && foldText(list.item(row)->text()) <= foldText(caption))
        ++row;
    insertField(list, row, caption, specid);
}

void removeField(QListWidget &list, QListWidgetItem *item)
{
    // The list would select a neighbour.
    const QSignalBlocker silent(list);
    delete list.takeItem(list.row(item));
    list.setCurrentRow(-1);
    list.clearSelection();
}

} // namespace obelmark
