// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QComboBox>
#include <optional>

namespace obelmark {

/// A drop-down list over the entries of a lookup table, each with its row's key as item data. The user picks
/// one entry and types nothing; Backspace and Delete empty the selection.
class LookupList : public QComboBox
{
    Q_OBJECT
public:
    explicit LookupList(QWidget *parent = nullptr);

    /// The key of the selected entry; nothing when none is selected.
    std::optional<qint64> key() const;
    /// Selects the first entry with that key; nothing when there is none.
    void selectKey(std::optional<qint64> key);

    void showPopup() override;

signals:
    /// A key meant for the list was pressed: any but those that move the focus, open menus or ask for help.
    void keyDown();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    /// Does what a key means for the selection. Answers whether that is all the key does: one that empties
    /// the list must not begin the text that the list looks entries up by.
    bool takeKey(const QKeyEvent &event);
};

} // namespace obelmark
