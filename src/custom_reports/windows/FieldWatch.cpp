#include "custom_reports/windows/FieldWatch.h"

#include "desktop/Desktop.h"
#include <QApplication>
#include <QEvent>
#include <QMenuBar>
#include <utility>

namespace obelmark {

FieldWatch::FieldWatch(QWidget &window, Desktop &desktop)
    : QObject(&window), m_window(window), m_desktop(desktop)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
}

void FieldWatch::watch(QWidget *field, const Rule &onLeave)
{
    m_rules.insert(field, onLeave);
}

bool FieldWatch::commit()
{
    QWidget *field = m_entered;
    const Rule rule = m_rules.value(field);
    const auto refusal = rule ? rule() : std::nullopt;
    if (refusal)
        refuse(field, *refusal);
    return !refusal;
}

bool FieldWatch::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
        return m_pending;
    default:
        return false;
    }
}

void FieldWatch::follow(QWidget *now)
{
    const bool isInWindow = now && now->window() == &m_window && !qobject_cast<QMenuBar *>(now);
    if (!isInWindow || now == m_entered)
        return;
    leave();
    m_entered = now;
}

void FieldWatch::leave()
{
    QWidget *field = std::exchange(m_entered, nullptr);
    const Rule rule = m_rules.value(field);
    if (!rule || m_pending || !m_window.isVisible())
        return;
    const auto refusal = rule();
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

void FieldWatch::refuse(QWidget *field, const Refusal &refusal)
{
    m_desktop.showMessage(refusal.text);
    if (!refusal.focusBack)
        return;
    // The field that the focus comes back from has not been touched.
    m_entered = field;
    field->setFocus(Qt::OtherFocusReason);
}

} // namespace obelmark
