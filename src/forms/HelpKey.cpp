#include "forms/HelpKey.h"

#include "desktop/Desktop.h"
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QVariant>

namespace obelmark {

HelpKey::HelpKey(QWidget &window, Desktop &desktop, const QString &helpFile)
    : QObject(&window), m_desktop(desktop), m_helpFile(helpFile)
{
    auto *key = new QShortcut(Qt::Key_F1, &window);
    connect(key, &QShortcut::activated, this, [this, &window] {
        const QWidget *focused = window.focusWidget();
        showHelpFor(focused ? focused : &window);
    });
    // A menu that is open keeps all keys to itself.
    const auto menus = window.findChildren<QMenu *>();
    for (QMenu *menu : menus)
        menu->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_F1)
        return false;
    const QObject *item = qobject_cast<QMenu *>(object)->activeAction();
    showHelpFor(item ? item : object);
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

} // namespace obelmark
