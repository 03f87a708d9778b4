// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/windows/DateField.h"

#include <QFocusEvent>
#include <QMouseEvent>

namespace obelmark {

DateField::DateField(QWidget *parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
}

void DateField::showPopup()
{
    // The mouse has done this already, other ways of opening have not.
    setFocus(Qt::OtherFocusReason);
    emit dropDown();
}

void DateField::moveFocusOn()
{
    m_movesFocusOn = !hasFocus();
    if (hasFocus())
        focusNextChild();
}

void DateField::focusInEvent(QFocusEvent *event)
{
    QComboBox::focusInEvent(event);
    if (!m_movesFocusOn)
        return;
    m_movesFocusOn = false;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus())
                focusNextChild();
        },
        Qt::QueuedConnection);
}

void DateField::mousePressEvent(QMouseEvent *event)
{
    QComboBox::mousePressEvent(event);
    // The release went to the calendar, and the arrow would stay down.
    QMouseEvent release(QEvent::MouseButtonRelease, event->position(), event->globalPosition(),
                        event->button(), Qt::NoButton, event->modifiers());
    mouseReleaseEvent(&release);
}

void DateField::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace obelmark
