// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/GuiDriver.h"

using namespace Qt::StringLiterals;

namespace obelmark::gui {

namespace {

/// More than any window has stops.
constexpr int mostTabs = 200;

/// Records a failure unless it holds.
bool check(bool holds, const QString &what)
{
    return QTest::qVerify(holds, qPrintable(what), "", __FILE__, __LINE__);
}

QString nameOf(const QObject &object)
{
    return QString::fromLatin1(object.metaObject()->className()) + u' ' + object.objectName();
}

bool usable(const QWidget &widget)
{
    return check(widget.isVisible(), nameOf(widget) + u" is visible"_s) &&
           check(widget.isEnabled(), nameOf(widget) + u" is enabled"_s);
}

} // namespace

bool waitUntil(const std::function<bool()> &condition, const char *what)
{
    return check(QTest::qWaitFor(condition, waitLimitMs), QString::fromUtf8(what));
}

bool activate(QWidget &window)
{
    window.show();
    QTest::qWait(1);
    window.activateWindow();
    return waitUntil([&window] { return window.isActiveWindow() && window.focusWidget(); },
                     qPrintable(nameOf(window) + u" is active"_s));
}

bool click(QWidget &widget)
{
    if (!usable(widget))
        return false;
    QTest::mouseClick(&widget, Qt::LeftButton);
    return true;
}

bool focusByMouse(QWidget &widget)
{
    return click(widget) && waitUntil([&widget] { return widget.hasFocus(); },
                                      qPrintable(nameOf(widget) + u" took the focus by a click"_s));
}

bool focusByTab(QWidget &widget)
{
    if (!usable(widget))
        return false;
    for (int presses = 0; presses < mostTabs && !widget.hasFocus(); ++presses) {
        if (!press(Qt::Key_Tab))
            return false;
    }
    return check(widget.hasFocus(), nameOf(widget) + u" can be reached with Tab"_s);
}

bool type(const QString &text)
{
    QWidget *widget = QApplication::focusWidget();
    if (!check(widget, u"a widget has the focus to type \"%1\""_s.arg(text)))
        return false;
    QTest::keyClicks(widget, text);
    return true;
}

bool press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *widget = QApplication::focusWidget();
    if (!check(widget, u"a widget has the focus to press key %1"_s.arg(int(key), 0, 16)))
        return false;
    QTest::keyClick(widget, key, modifiers);
    return true;
}

bool trigger(const QWidget &window, const QString &action)
{
    auto &found = find<QAction>(window, action);
    if (!check(found.isVisible(), nameOf(found) + u" is visible"_s) ||
        !check(found.isEnabled(), nameOf(found) + u" is enabled"_s))
        return false;
    found.trigger();
    return true;
}

bool withDialog(const std::function<void()> &open, const std::function<void(QWidget &)> &act)
{
    const QWidget *before = QApplication::activeModalWidget();
    bool acted = false;
    QTimer timer;
    timer.setSingleShot(true);
    timer.callOnTimeout([&] {
        QPointer<QWidget> dialog;
        const auto ready = [&] {
            QWidget *modal = QApplication::activeModalWidget();
            dialog = modal != before ? modal : nullptr;
            return dialog && dialog->isActiveWindow() && dialog->focusWidget();
        };
        const auto closing = qScopeGuard([&dialog] {
            if (auto *box = qobject_cast<QDialog *>(dialog.data()); box && box->isVisible())
                box->reject();
            else if (dialog)
                dialog->close();
        });
        acted = QTest::qWaitFor(ready, waitLimitMs);
        if (acted)
            act(*dialog);
    });
    timer.start(0);
    open();
    return check(acted, u"a dialog was shown and became active"_s);
}

} // namespace obelmark::gui
