#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace obelmark {

class Desktop;

/// Runs a field's rule when the user leaves the field for another one of the window: it stores the value or
/// refuses it.
///
/// A menu, a drop-down or another window is not leaving. A refusal is told when the event that moved the
/// focus is done; until then the clicks and keys that belong to that event are swallowed, so that a press on
/// a list or a button does not act on a value that was refused.
class FieldWatch : public QObject
{
    Q_OBJECT
public:
    struct Refusal
    {
        QString text;
        bool focusBack = true; ///< into the field; else it stays where the user has put it
    };
    using Rule = std::function<std::optional<Refusal>()>;

    FieldWatch(QWidget &window, Desktop &desktop);

    void watch(QWidget *field, const Rule &onLeave);

    bool isRefusalPending() const { return m_pending; }
    /// What leaving would do, for a command that no focus change comes before. Answers false, after the
    /// message, when the value is refused.
    bool commit();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void follow(QWidget *now);
    void leave();
    void refuse(QWidget *field, const Refusal &refusal);

    QWidget &m_window;
    Desktop &m_desktop;
    QHash<QWidget *, Rule> m_rules;
    QWidget *m_entered = nullptr; ///< the field that has been entered and not left yet
    bool m_pending = false;
};

} // namespace obelmark
