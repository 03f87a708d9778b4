#include "forms/PlaceBeside.h"

#include <QScreen>
#include <QWidget>

namespace obelmark {

void placeBeside(QWidget &window, const QWidget &other)
{
    const QRect screen = other.screen()->availableGeometry();
    const QRect frame = other.frameGeometry();
    const int border = other.geometry().left() - frame.left(); // that of the new window is not known yet
    const int width = window.width() + 2 * border;
    if (frame.right() + 1 + width <= screen.right() + 1)
        window.move(frame.right() + 1, frame.top());
    else if (frame.left() - width >= screen.left())
        window.move(frame.left() - width, frame.top());
}

} // namespace obelmark
