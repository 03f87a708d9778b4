#pragma once

#include <QKeyEvent>
#include <QListWidget>

namespace obelmark {

/// A list in which one entry is chosen: what is highlighted is what the keys have moved to, and Ctrl takes no
/// choice back. A list without a choice puts the frame of the focus around its first entry; keys that lead
/// there choose that.
class ChoiceList : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        QListWidget::keyPressEvent(event);
        const bool moves = event->key() == Qt::Key_Home || event->key() == Qt::Key_End ||
                           event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                           event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
        if (moves && currentItem() && selectedItems().isEmpty())
            currentItem()->setSelected(true);
    }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *) const override
    {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }
};

} // namespace obelmark
