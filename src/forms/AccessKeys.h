// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QWidget;

namespace obelmark {

/// Makes access keys safe in a window that edits records.
///
/// A button acts at once: by itself it shows itself pressed for a tenth of a second first, and what is typed
/// meanwhile would go to the coin or the state before. And Alt with a letter that is no access key at the
/// moment types nothing: the button may only just have been hidden, and a text field would take the letter.
class AccessKeys : public QObject
{
    Q_OBJECT
public:
    /// For everything that \a window holds now.
    explicit AccessKeys(QWidget &window);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace obelmark
