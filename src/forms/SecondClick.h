// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QMouseEvent;

namespace obelmark {

/// To be called when a click of the mouse closes its window. When that was the first half of a double click,
/// the second half, for which there is no window any more, would be a click on the window below.
/// \a release is what has ended the click.
void swallowSecondClick(const QMouseEvent &release);

} // namespace obelmark
