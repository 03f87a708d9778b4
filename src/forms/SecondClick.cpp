// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/SecondClick.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace obelmark {

namespace {

/// Watches the mouse from the one click to the next.
class SecondClick : public QObject
{
public:
    explicit SecondClick(const QMouseEvent &first)
        : QObject(qApp), m_place(first.globalPosition()), m_time(first.timestamp())
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        // What a window of the desktop gets comes before what goes to its fields and buttons.
        if (!object->isWindowType())
            return false;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (!isSecond(static_cast<QMouseEvent &>(*event)))
                return finish(false);
            m_isDown = true;
            return true;
        case QEvent::MouseButtonDblClick:
            return m_isDown;
        case QEvent::MouseButtonRelease:
            return m_isDown && finish(true);
        default:
            return false;
        }
    }

private:
    bool isSecond(const QMouseEvent &press) const
    {
        const QStyleHints &usual = *QGuiApplication::styleHints();
        const QPointF way = press.globalPosition() - m_place;
        return press.timestamp() - m_time < quint64(usual.mouseDoubleClickInterval()) &&
               way.manhattanLength() <= usual.mouseDoubleClickDistance();
    }
    bool finish(bool isSwallowed)
    {
        qApp->removeEventFilter(this);
        deleteLater();
        return isSwallowed;
    }

    QPointF m_place;
    quint64 m_time;
    bool m_isDown = false;
};

} // namespace

void swallowSecondClick(const QMouseEvent &release)
{
    new SecondClick(release);
}

} // namespace obelmark
