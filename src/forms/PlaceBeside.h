#pragma once

class QWidget;

namespace obelmark {

/// Moves a window that has not been shown yet to the right of another, or to its left, when there is room on
/// the screen; else the desktop places it.
void placeBeside(QWidget &window, const QWidget &other);

} // namespace obelmark
