// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/OpeningPlace.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <algorithm>

namespace obelmark {

namespace {

bool isToBePlaced(const QWidget &window)
{
    const bool isWindow = window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
    const bool isCentredAnyway = qobject_cast<const QDialog *>(&window) && window.parentWidget();
    return isWindow && !isCentredAnyway && !window.testAttribute(Qt::WA_Moved);
}

bool isTaken(QPoint place, const QWidget &by)
{
    const auto windows = QApplication::topLevelWidgets();
    return std::ranges::any_of(windows, [&](const QWidget *other) {
        return other != &by && other->isVisible() && other->pos() == place;
    });
}

} // namespace

OpeningPlace::OpeningPlace()
{
    qApp->installEventFilter(this);
}

bool OpeningPlace::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Hide && object == m_main)
        rememberMain();
    if (event->type() != QEvent::Show || event->spontaneous() || object == m_main || !object->isWidgetType())
        return false;
    auto &window = *static_cast<QWidget *>(object);
    if (!window.isWindow() || !isToBePlaced(window))
        return false;
    if (m_main && m_main->isVisible())
        rememberMain();
    if (m_frame.isValid())
        place(window);
    return false;
}

void OpeningPlace::rememberMain()
{
    m_frame = m_main->frameGeometry();
    m_inside = m_main->geometry();
}

void OpeningPlace::place(QWidget &window) const
{
    constexpr QPoint step(24, 24);
    const QRect screen = window.screen()->availableGeometry();
    QRect frame(QPoint(), window.size() + m_frame.size() - m_inside.size());
    frame.moveCenter(m_frame.center());
    // On a screen that is too small the title must be seen.
    frame.moveLeft(std::max(std::min(frame.left(), screen.right() + 1 - frame.width()), screen.left()));
    frame.moveTop(std::max(std::min(frame.top(), screen.bottom() + 1 - frame.height()), screen.top()));
    while (isTaken(frame.topLeft(), window) && screen.contains(frame.translated(step)))
        frame.translate(step);
    // The window exists already, but most desktops frame it only when it is on the screen.
    const bool isFramed = window.frameGeometry() != window.geometry();
    window.move(frame.topLeft() + (isFramed ? QPoint() : m_inside.topLeft() - m_frame.topLeft()));
}

} // namespace obelmark
