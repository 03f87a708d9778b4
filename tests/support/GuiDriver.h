// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtTest>
#include <QtWidgets>
#include <functional>

/// The hands of the window tests: real mouse and key events on real widgets, and waiting on conditions
/// instead of time. What returns a bool has already recorded the failure when it is false; wrap it in
/// QVERIFY.
namespace obelmark::gui {

/// The longest that any condition is waited for.
inline constexpr int waitLimitMs = 1500;

/// Runs the event loop until the condition holds.
bool waitUntil(const std::function<bool()> &condition, const char *what);

/// After a show, or when a dialog or menu has closed: brings the window to the front and waits until it is
/// active and holds the focus.
bool activate(QWidget &window);

/// The child of that type and objectName. A window without it ends the test program: nothing else in the test
/// could mean anything.
template<class Child>
Child &find(const QObject &window, const QString &name)
{
    Child *child = window.findChild<Child *>(name);
    if (!child) {
        qFatal("%s has no %s named %s", qPrintable(window.objectName()), Child::staticMetaObject.className(),
               qPrintable(name));
    }
    return *child;
}

/// A click with the left button on the middle of a widget that the user can see and use.
bool click(QWidget &widget);
/// Brings the focus to the widget by a click, or by pressing Tab until it arrives.
bool focusByMouse(QWidget &widget);
bool focusByTab(QWidget &widget);

/// Keys for the widget that has the focus.
bool type(const QString &text);
bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Triggers the action of that objectName when the user could.
bool trigger(const QWidget &window, const QString &action);

/// Runs \a open, which is to show a dialog with exec(), and \a act as soon as that dialog is active. A dialog
/// that \a act leaves open is closed.
bool withDialog(const std::function<void()> &open, const std::function<void(QWidget &dialog)> &act);

} // namespace obelmark::gui
