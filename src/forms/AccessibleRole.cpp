// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace obelmark {

static constexpr char roleProperty[] = "accessibleRole";

static QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    const QVariant role = object ? object->property(roleProperty) : QVariant();
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::Role(role.toInt()));
}

void setAccessibleRole(QWidget &widget, QAccessible::Role role)
{
    widget.setProperty(roleProperty, int(role));
    QAccessible::installFactory(makeInterface); // it is there only once
}

} // namespace obelmark
