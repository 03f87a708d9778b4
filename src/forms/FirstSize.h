// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

namespace obelmark {

/// Gives a window its first size: that of its .ui file, which was drawn for usual letters, grown with the
/// letters of the user's desktop, as far as the screen is large enough. When not even the least that the
/// controls need fits on the screen, they are scrolled. To be called when the window has its texts.
void setFirstSize(QWidget &window);

} // namespace obelmark
