// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Desktop.h"
#include <QHash>
#include <QObject>
#include <functional>
#include <optional>

class QWidget;

namespace obelmark {

/// Watches the focus of entry fields: what happens when one is entered, and the check when the user leaves
/// it. A refused value is told in a message box and the focus put back into its field.
///
/// A window that becomes inactive, a drop-down or a menu is not leaving: the field counts as entered until
/// another one has the focus. The check runs at once; the message box comes when the event that moved the
/// focus is done, and until then the clicks that belong to that event are swallowed: a press on a button next
/// to a wrong price must not act on it.
class EntryWatch : public QObject
{
    Q_OBJECT
public:
    struct Refusal
    {
        QString text;
        Desktop::Icon icon = Desktop::Icon::None;
    };
    struct Rules
    {
        std::function<void()> onEnter;
        std::function<std::optional<Refusal>()> onLeave;
        /// For a command that no focus change comes before, such as an access key; onLeave when it is not
        /// set.
        std::function<std::optional<Refusal>()> onCommit;
    };

    /// Runs a rule and deals with its errors.
    using Runner = std::function<void(const std::function<void()> &rule)>;

    EntryWatch(QWidget &window, Desktop &desktop, Runner runner);

    void watch(QWidget *field, Rules rules);
    void watch(QWidget *field, const std::function<std::optional<Refusal>()> &onLeave)
    {
        watch(field, Rules{{}, onLeave, {}});
    }

    /// Whether a value may be refused when the field is left.
    bool checks(QObject *field) const { return bool(m_rules.value(field).onLeave); }

    bool isRefusalPending() const { return m_pending; }
    /// Does for the field that has been entered and not left yet what leaving it would do. Answers false,
    /// after the message, when its value is refused.
    bool commitEnteredField();
    /// The entered field counts as left, without its check: what it holds is dropped.
    void forgetEnteredField() { m_entered = nullptr; }

    /// Brings a field's page to the front and gives it the focus.
    static void focusField(QWidget *field, Qt::FocusReason reason = Qt::OtherFocusReason);
    /// Queues selecting the whole text of a line edit: the mouse press that brought the focus would undo it.
    static void selectAllLater(QWidget *lineEdit);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void refuse(QWidget *field, const Refusal &refusal);
    void enter(QWidget *field);
    void leave();
    void followFocus(QWidget *now);
    std::optional<Refusal> check(const std::function<std::optional<Refusal>()> &rule) const;

    QWidget &m_window;
    Desktop &m_desktop;
    Runner m_run;
    QHash<QObject *, Rules> m_rules;
    QWidget *m_entered = nullptr; ///< the watched field that has been entered and not left yet
    bool m_pending = false;
    bool m_returning = false;
};

} // namespace obelmark
