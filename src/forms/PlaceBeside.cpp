// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/PlaceBeside.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace obelmark {

void placeBeside(QWidget &window, const QWidget &other)
{
    const QRect screen = other.screen()->availableGeometry();
    const QRect frame = other.frameGeometry();
    const int borders = frame.width() - other.width(); // those of the new window are not known yet
    const int onTheRight = screen.right() - frame.right();
    const int onTheLeft = frame.left() - screen.left();
    const bool goesRight = onTheRight >= std::min(onTheLeft, window.width() + borders);
    const int room = goesRight ? onTheRight : onTheLeft;
    const int width = std::min(window.width(), room - borders);
    if (width < window.width() * 2 / 3)
        return;
    window.resize(width, window.height());
    window.move(goesRight ? frame.right() + 1 : frame.left() - width - borders, frame.top());
}

} // namespace obelmark
