// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/HelpKey.h"

#include "desktop/Desktop.h"
#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QVariant>

namespace obelmark {

HelpKey::HelpKey(QWidget &window, Desktop &desktop, const QString &helpFile)
    : QObject(&window), m_window(window), m_desktop(desktop), m_helpFile(helpFile)
{
    listenIn(window, nullptr);
    window.installEventFilter(this);
    const auto actions = window.findChildren<QAction *>();
    for (QAction *action : actions)
        connect(action, &QAction::triggered, this, [this, action] { setOrigin(*action); });
    const auto buttons = window.findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons)
        connect(button, &QAbstractButton::pressed, this, [this, button] { setOrigin(*button); });
    // A menu that is open keeps all keys to itself.
    const auto menus = window.findChildren<QMenu *>();
    for (QMenu *menu : menus)
        menu->installEventFilter(this);
}

void HelpKey::listenIn(QWidget &place, const QObject *origin)
{
    auto *key = new QShortcut(Qt::Key_F1, &place);
    connect(key, &QShortcut::activated, this, [this, origin] {
        const QObject *focused = m_window.focusWidget();
        showHelpFor(origin ? origin : focused ? focused : &m_window);
    });
}

// An item of a menu and a button's access key leave the focus where it is. What they do is done when the next
// event comes; by then a box that they bring up has been seen.
void HelpKey::setOrigin(const QObject &origin)
{
    m_origin = &origin;
    QMetaObject::invokeMethod(
        this, [this] { m_origin = nullptr; }, Qt::QueuedConnection);
}

bool HelpKey::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ChildPolished) {
        auto *box = qobject_cast<QDialog *>(static_cast<QChildEvent *>(event)->child());
        if (box && !box->findChild<HelpKey *>({}, Qt::FindDirectChildrenOnly))
            listenIn(*box, m_origin);
        return false;
    }
    const auto *menu = qobject_cast<QMenu *>(object);
    if (!menu || event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_F1)
        return false;
    const QObject *item = menu->activeAction();
    if (!item)
        item = object;
    // The help window comes when the menus have closed and the menu bar has given the focus back: later it
    // would not.
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    QMetaObject::invokeMethod(
        this,
        [this, item] {
            if (auto *bar = m_window.findChild<QMenuBar *>()) {
                QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
                QApplication::sendEvent(bar, &escape);
            }
            showHelpFor(item);
        },
        Qt::QueuedConnection);
    return true;
}

void HelpKey::showHelpFor(const QObject *object)
{
    for (; object; object = object->parent()) {
        const QVariant topic = object->property("helpTopic");
        if (topic.isValid()) {
            m_desktop.showHelpTopic(m_helpFile, topic.toInt());
            return;
        }
    }
}

void setHelpTopic(QWidget &window, int topic)
{
    window.setProperty("helpTopic", topic);
    const auto widgets = window.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->property("helpTopic").isValid())
            widget->setProperty("helpTopic", topic);
    }
}

} // namespace obelmark
