// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/LookupList.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWheelEvent>

namespace obelmark {

namespace {

bool isMeantForList(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F1:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return false;
    default:
        return !event.modifiers().testFlag(Qt::AltModifier);
    }
}

} // namespace

LookupList::LookupList(QWidget *parent) : QComboBox(parent)
{
    // A long entry must not move the fields beside the list.
    constexpr int lettersAtLeast = 18;
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(lettersAtLeast);
}

std::optional<qint64> LookupList::key() const
{
    if (currentIndex() < 0)
        return {};
    return currentData().toLongLong();
}

void LookupList::selectKey(std::optional<qint64> key)
{
    setCurrentIndex(key ? findData(QVariant::fromValue(*key)) : -1);
}

void LookupList::keyPressEvent(QKeyEvent *event)
{
    if (!takeKey(*event))
        QComboBox::keyPressEvent(event);
}

// While the list is dropped down its keys go to the view in the drop-down.
void LookupList::showPopup()
{
    QComboBox::showPopup();
    view()->installEventFilter(this);
}

bool LookupList::eventFilter(QObject *object, QEvent *event)
{
    if (object == view() && event->type() == QEvent::KeyPress && takeKey(*static_cast<QKeyEvent *>(event))) {
        hidePopup();
        return true;
    }
    return QComboBox::eventFilter(object, event);
}

bool LookupList::takeKey(const QKeyEvent &event)
{
    if (!isMeantForList(event))
        return false;
    const bool empties = event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
    if (empties)
        setCurrentIndex(-1);
    emit keyDown();
    return empties;
}

// The wheel scrolls past the field on its way over the page; it must not change a coin by the way.
void LookupList::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace obelmark
