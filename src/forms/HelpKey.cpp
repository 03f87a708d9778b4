#include "forms/HelpKey.h"

#include "desktop/Desktop.h"
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
    listenIn(window);
    window.installEventFilter(this);
    // A menu that is open keeps all keys to itself.
    const auto menus = window.findChildren<QMenu *>();
    for (QMenu *menu : menus)
        menu->installEventFilter(this);
}

void HelpKey::listenIn(QWidget &place)
{
    auto *key = new QShortcut(Qt::Key_F1, &place);
    connect(key, &QShortcut::activated, this, [this] {
        const QWidget *focused = m_window.focusWidget();
        showHelpFor(focused ? focused : &m_window);
    });
}

bool HelpKey::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ChildPolished) {
        auto *box = qobject_cast<QDialog *>(static_cast<QChildEvent *>(event)->child());
        if (box && !box->findChild<HelpKey *>({}, Qt::FindDirectChildrenOnly))
            listenIn(*box);
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
