#include "editor/LookupList.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace obelmark {

namespace {

bool isMeantForList(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F1:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return false;
    default:
        return !event.modifiers().testFlag(Qt::AltModifier);
    }
}

} // namespace

std::optional<qint64> LookupList::key() const
{
    if (currentIndex() < 0)
        return {};
    return currentData().toLongLong();
}

void LookupList::selectKey(std::optional<qint64> key)
{
    setCurrentIndex(key ? findData(QVariant::fromValue(*key)) : -1);
}

void LookupList::keyPressEvent(QKeyEvent *event)
{
    if (isMeantForList(*event)) {
        if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)
            setCurrentIndex(-1);
        emit keyDown();
    }
    QComboBox::keyPressEvent(event);
}

// The wheel scrolls past the field on its way over the page; it must not change a coin by the way.
void LookupList::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace obelmark
