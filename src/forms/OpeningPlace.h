// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

namespace obelmark {

/// Where the windows of the program open for the first time: centred over the main window or, while that is
/// closed, over its last place. A desktop that gives windows places of its own takes no notice. Windows that
/// have been moved before they are shown stay there.
class OpeningPlace : public QObject
{
    Q_OBJECT
public:
    /// For the whole application, as long as this object lives.
    OpeningPlace();

    void setMainWindow(QWidget *window) { m_main = window; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void rememberMain();
    void place(QWidget &window) const;

    QPointer<QWidget> m_main;
    // Of the main window, as last seen.
    QRect m_frame;
    QRect m_inside;
};

} // namespace obelmark
