// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

namespace obelmark {

/// Moves a window that has not been shown yet to the right of another, or to its left, somewhat narrower when
/// need be. When there is not even room for that on the screen, it opens like any other window.
void placeBeside(QWidget &window, const QWidget &other);

} // namespace obelmark
