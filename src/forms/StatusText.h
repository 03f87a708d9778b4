// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

namespace obelmark {

/// A text in the status line that takes what room there is: when that is too little, dots stand for its
/// middle, and a tool tip shows the whole.
class StatusText : public QLabel
{
    Q_OBJECT
public:
    StatusText(const QString &name, QWidget *parent);

    void tell(const QString &text);
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace obelmark
