#pragma once

#include <QListWidget>

namespace obelmark {

/// A list in which one entry is chosen: what is highlighted is what the keys have moved to, and Ctrl takes no
/// choice back.
class ChoiceList : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *) const override
    {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }
};

} // namespace obelmark
