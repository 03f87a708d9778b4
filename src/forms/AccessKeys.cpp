// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/AccessKeys.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>

namespace obelmark {

namespace {

bool isAltWithLetter(const QKeyEvent &key)
{
    const auto modifiers = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return modifiers == Qt::AltModifier && !key.text().isEmpty() && key.text().at(0).isPrint();
}

} // namespace

AccessKeys::AccessKeys(QWidget &window) : QObject(&window)
{
    const auto widgets = window.findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        widget->installEventFilter(this);
}

bool AccessKeys::eventFilter(QObject *object, QEvent *event)
{
    auto *button = qobject_cast<QPushButton *>(object);
    if (button && event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent *>(event)->isAmbiguous()) {
        button->click();
        return true;
    }
    return event->type() == QEvent::KeyPress && isAltWithLetter(*static_cast<QKeyEvent *>(event));
}

} // namespace obelmark
