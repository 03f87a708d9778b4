// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ChoiceList.h"

#include <QKeyEvent>
#include <QPainter>

namespace obelmark {

bool ChoiceList::event(QEvent *event)
{
    const bool isDone = QListWidget::event(event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() == QEvent::Paint && hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return isDone;
}

void ChoiceList::keyPressEvent(QKeyEvent *event)
{
    QListWidget::keyPressEvent(event);
    const bool moves = event->key() == Qt::Key_Home || event->key() == Qt::Key_End ||
                       event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                       event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    if (moves && currentItem() && selectedItems().isEmpty())
        currentItem()->setSelected(true);
}

void ChoiceList::initViewItemOption(QStyleOptionViewItem *option) const
{
    QListWidget::initViewItemOption(option);
    // By itself the style tells active windows from others only.
    if (!hasFocus()) {
        option->palette.setBrush(QPalette::Highlight, palette().brush(QPalette::Mid));
        option->palette.setBrush(QPalette::HighlightedText, palette().brush(QPalette::Text));
    }
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex &index,
                                                                 const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace obelmark
