// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/EnterOnButtons.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace obelmark {

namespace {

bool isEnter(const QKeyEvent &key)
{
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           !(key.modifiers() & ~Qt::KeypadModifier);
}

} // namespace

EnterOnButtons::EnterOnButtons()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool EnterOnButtons::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !isEnter(*static_cast<QKeyEvent *>(event)))
        return false;
    if (!qobject_cast<QPushButton *>(object) && !qobject_cast<QToolButton *>(object))
        return false;
    // A key that is held down presses once, like the space bar.
    if (!static_cast<QKeyEvent *>(event)->isAutoRepeat())
        static_cast<QAbstractButton *>(object)->click();
    return true;
}

} // namespace obelmark
