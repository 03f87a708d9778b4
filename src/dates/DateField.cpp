#include "dates/DateField.h"

#include <QWheelEvent>

namespace obelmark {

DateField::DateField(QWidget *parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
}

void DateField::showPopup()
{
    emit dropDown();
}

void DateField::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace obelmark
