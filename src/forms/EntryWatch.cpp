// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/EntryWatch.h"

#include "forms/HelpKey.h"
#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QWidget>
#include <utility>

namespace obelmark {

namespace {

bool isLeaving(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

bool isUserInput(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick || type == QEvent::Wheel || type == QEvent::KeyPress ||
           type == QEvent::KeyRelease || type == QEvent::Shortcut;
}

} // namespace

EntryWatch::EntryWatch(QWidget &window, Desktop &desktop, Runner runner)
    : QObject(&window), m_window(window), m_desktop(desktop), m_run(std::move(runner))
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { followFocus(now); });
}

void EntryWatch::watch(QWidget *field, Rules rules)
{
    if (!rules.onCommit)
        rules.onCommit = rules.onLeave;
    m_rules.insert(field, rules);
    field->installEventFilter(this);
}

bool EntryWatch::commitEnteredField()
{
    const auto rules = m_rules.constFind(m_entered);
    if (rules == m_rules.cend() || !rules->onCommit)
        return true;
    QWidget *field = m_entered;
    const auto refusal = check(rules->onCommit);
    if (!refusal)
        return true;
    refuse(field, *refusal);
    return false;
}

void EntryWatch::focusField(QWidget *field, Qt::FocusReason reason)
{
    for (QWidget *page = field; page; page = page->parentWidget()) {
        QWidget *stack = page->parentWidget();
        if (auto *tabs = stack ? qobject_cast<QTabWidget *>(stack->parentWidget()) : nullptr)
            tabs->setCurrentWidget(page);
    }
    field->setFocus(reason);
}

void EntryWatch::selectAllLater(QWidget *lineEdit)
{
    auto *edit = qobject_cast<QLineEdit *>(lineEdit);
    QMetaObject::invokeMethod(
        edit,
        [edit] {
            if (edit->hasFocus())
                edit->selectAll();
        },
        Qt::QueuedConnection);
}

bool EntryWatch::eventFilter(QObject *object, QEvent *event)
{
    if (m_pending && isUserInput(event->type()))
        return true;
    if (!m_rules.contains(object))
        return false;
    const bool isFocusEvent = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (!isFocusEvent || !isLeaving(static_cast<QFocusEvent *>(event)->reason()))
        return false;
    if (event->type() == QEvent::FocusIn)
        enter(static_cast<QWidget *>(object));
    else if (object == m_entered)
        leave();
    return false;
}

// A field that was left for the menu bar or another window is left for good when another field gets the
// focus.
void EntryWatch::followFocus(QWidget *now)
{
    const bool isField =
        now && m_window.isAncestorOf(now) && !qobject_cast<QMenuBar *>(now) && now->window() == &m_window;
    if (isField && m_entered && now != m_entered)
        leave();
    if (isField && m_rules.contains(now))
        m_entered = now;
}

void EntryWatch::enter(QWidget *field)
{
    const auto onEnter = m_rules.value(field).onEnter;
    if (onEnter)
        onEnter();
}

void EntryWatch::leave()
{
    QWidget *field = std::exchange(m_entered, nullptr);
    if (m_returning || m_pending)
        return;
    const auto onLeave = m_rules.value(field).onLeave;
    if (!onLeave || !m_window.isVisible())
        return;
    const auto refusal = check(onLeave);
    if (!refusal)
        return;
    m_pending = true;
    qApp->installEventFilter(this);
    QMetaObject::invokeMethod(
        this,
        [this, field, refusal] {
            qApp->removeEventFilter(this);
            m_pending = false;
            refuse(field, *refusal);
        },
        Qt::QueuedConnection);
}

void EntryWatch::refuse(QWidget *field, const Refusal &refusal)
{
    // The focus has gone on to another field already.
    if (auto *help = m_window.findChild<HelpKey *>({}, Qt::FindDirectChildrenOnly))
        help->setOrigin(*field);
    m_desktop.showMessage(refusal.text, QString::fromUtf16(applicationTitle), refusal.icon);
    // The field that the focus comes back from has not been touched.
    const QScopedValueRollback returning(m_returning, true);
    focusField(field);
    m_entered = field;
    enter(field);
}

std::optional<EntryWatch::Refusal>
EntryWatch::check(const std::function<std::optional<Refusal>()> &rule) const
{
    std::optional<Refusal> refusal;
    m_run([&] { refusal = rule(); });
    return refusal;
}

} // namespace obelmark
