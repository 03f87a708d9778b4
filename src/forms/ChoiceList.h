// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QListWidget>

namespace obelmark {

/// A list in which one entry is chosen: what is highlighted is what the keys have moved to, and Ctrl takes no
/// choice back. A list without a choice puts the frame of the focus around its first entry; keys that lead
/// there choose that. Of several lists one sees which one the keys are for: it has a frame, and only its
/// choice is in colour.
class ChoiceList : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void initViewItemOption(QStyleOptionViewItem *option) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
};

} // namespace obelmark
