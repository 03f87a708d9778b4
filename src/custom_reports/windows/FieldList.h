// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

class QListWidget;
class QListWidgetItem;

namespace obelmark {

// The designer's lists of fields: captions whose Qt::UserRole is the field's specid.

int fieldId(const QListWidgetItem &item);
/// All ids in the order of the list.
QList<int> fieldIds(const QListWidget &list);
/// nullptr when none is selected
QListWidgetItem *selectedField(const QListWidget &list);
void appendField(QListWidget &list, const QString &caption, int specid);
void insertAlphabetically(QListWidget &list, const QString &caption, int specid);
/// Nothing is selected afterwards.
void removeField(QListWidget &list, QListWidgetItem *item);

} // namespace obelmark
