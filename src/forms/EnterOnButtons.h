// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace obelmark {

/// Enter presses the button that has the focus, in every window of the program. By itself a button leaves the
/// key to its window, which presses its default button instead or does nothing at all. Option buttons and
/// check boxes are entries like fields: there Enter is for the default button.
class EnterOnButtons : public QObject
{
    Q_OBJECT
public:
    /// For the whole application, as long as this object lives.
    EnterOnButtons();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace obelmark
