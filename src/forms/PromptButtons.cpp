#include "forms/PromptButtons.h"

#include <QPushButton>
#include <QShortcutEvent>

namespace obelmark {

PromptButtons::PromptButtons(QWidget &window) : QObject(&window)
{
    const auto buttons = window.findChildren<QPushButton *>();
    for (QPushButton *button : buttons)
        button->installEventFilter(this);
}

bool PromptButtons::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent *>(event)->isAmbiguous())
        return QObject::eventFilter(object, event);
    static_cast<QPushButton *>(object)->click();
    return true;
}

} // namespace obelmark
