// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/windows/DatePicker.h"

#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "dates/windows/frmDateEnt.h"
#include "runtime/Formats.h"
#include <QGuiApplication>
#include <QScreen>

namespace obelmark {

Date dateOrToday(const QString &text, const RegionalSettings &regional)
{
    return isDate(text, regional) ? toDate(text, regional) : Date::today();
}

QPoint calendarPlace(const QRect &field, QSize window, const QRect &screen, CalendarEdge edge)
{
    QRect place(QPoint(), window);
    place.moveRight(field.right());
    place.moveTop(field.top() + 2 * field.height() - (edge == CalendarEdge::Bottom ? window.height() : 0));
    // Of a window larger than the screen, the upper left corner is what must be seen.
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveLeft(std::max(place.left(), screen.left()));
    place.moveTop(std::max(place.top(), screen.top()));
    return place.topLeft();
}

/// The size that a window will have on the screen. The frame comes with showing it; until then the one around
/// the window below it serves.
static QSize sizeInFrame(const QWidget &window, const QWidget &framed)
{
    return window.size() + framed.frameGeometry().size() - framed.size();
}

void pickDateFor(DateField &field, const QString &caption, Date start, SharedState &shared, CalendarEdge edge)
{
    shared.PickDate = start;
    frmDateEnt calendar(shared, field.window());
    calendar.setWindowTitle(caption);
    calendar.adjustSize();
    const QRect onScreen(field.mapToGlobal(QPoint(0, 0)), field.size());
    const QScreen *screen = QGuiApplication::screenAt(onScreen.center());
    calendar.move(calendarPlace(onScreen, sizeInFrame(calendar, *field.window()),
                                (screen ? screen : field.screen())->availableGeometry(), edge));
    calendar.exec();
    field.setText(formatShortDate(shared.PickDate, shared.regional));
    field.moveFocusOn();
}

} // namespace obelmark
