// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace obelmark {

class Desktop;

/// F1 in a window opens the help file on the topic of the widget with the focus, or of the highlighted menu
/// item: the number in its dynamic property "helpTopic" or, without one, that of what it lies in. In a box of
/// the window that has no help of its own (a message, the calendar) it opens the topic of the widget or
/// item that the box has come from.
class HelpKey : public QObject
{
    Q_OBJECT
public:
    /// To be made when the menus of the window are complete, before anything is connected to their items. The
    /// path of the help file is read when the key is pressed: it is not known before start-up. Both it and
    /// the desktop must outlive the window.
    HelpKey(QWidget &window, Desktop &desktop, const QString &helpFile);
    HelpKey(QWidget &window, Desktop &desktop, QString &&helpFile) = delete;

    /// What the box that is about to come up comes from.
    void setOrigin(const QObject &origin);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void listenIn(QWidget &place, const QObject *origin);
    void showHelpFor(const QObject *object);

    QWidget &m_window;
    Desktop &m_desktop;
    const QString &m_helpFile;
    const QObject *m_origin = nullptr; ///< the button or item that is just being carried out
};

/// Gives every widget of the window that has a topic, and the window itself, this one.
void setHelpTopic(QWidget &window, int topic);

} // namespace obelmark
