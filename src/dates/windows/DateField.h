// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QComboBox>

namespace obelmark {

/// A field for a date: typed as text, or chosen by opening its drop-down (with the mouse, F4 or Alt+Down),
/// which asks for the calendar instead of showing a list.
class DateField : public QComboBox
{
    Q_OBJECT
public:
    explicit DateField(QWidget *parent = nullptr);

    QString text() const { return currentText(); }
    void setText(const QString &text) { setEditText(text); }

    void showPopup() override;
    /// Moves the focus from this field to the next control, as the Tab key does. When another window has just
    /// been closed over the field's own, this waits until that is active again.
    void moveFocusOn();

signals:
    /// The user opened the drop-down.
    void dropDown();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool m_movesFocusOn = false;
};

} // namespace obelmark
