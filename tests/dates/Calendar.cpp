// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "dates/windows/DatePicker.h"
#include "runtime/Formats.h"
#include "support/Cases.h"
#include "support/GuiDriver.h"
#include "support/ScriptedDesktop.h"

using namespace obelmark;

namespace {

QTableWidget &grid(const QWidget &calendar)
{
    return gui::find<QTableWidget>(calendar, u"Grid1"_s);
}

void clickCell(const QWidget &calendar, int row, int column)
{
    const QTableWidget &days = grid(calendar);
    QTest::mouseClick(days.viewport(), Qt::LeftButton, {},
                      days.visualItemRect(days.item(row, column)).center());
}

void clickDay(const QWidget &calendar, int day)
{
    const auto items = grid(calendar).findItems(QString::number(day), Qt::MatchExactly);
    QCOMPARE(items.size(), 1);
    clickCell(calendar, items.first()->row(), items.first()->column());
}

/// Month and year shown and the day chosen, such as "July 4 1976".
QString page(const QWidget &calendar)
{
    return u"%1 %2 %3"_s.arg(gui::find<QLineEdit>(calendar, u"txtMonth"_s).text(),
                             grid(calendar).currentItem()->text(),
                             gui::find<QLineEdit>(calendar, u"txtYear"_s).text());
}

/// What the user does in the calendar, one step after the other: presses a key by its name, clicks a day by
/// its number or an arrow button by its object name, closes the window; "=" checks the page() that shows.
void act(QWidget &calendar, const QString &steps)
{
    for (const QString &step : steps.split(u", "_s)) {
        if (step.startsWith(u'='))
            QCOMPARE(page(calendar), step.sliced(1));
        else if (step.startsWith(u"Spin"_s))
            gui::click(gui::find<QToolButton>(calendar, step));
        else if (step == u"close")
            calendar.close();
        else if (step.toInt() > 0)
            clickDay(calendar, step.toInt());
        else
            gui::press(QKeySequence(step)[0].key(), QKeySequence(step)[0].keyboardModifiers());
    }
}

/// A date field in a window, with something to go on to.
struct Form
{
    explicit Form(const RegionalSettings &regional = RegionalSettings(QLocale(u"en_US"_s)))
        : shared(desktop, regional)
    {
        for (QWidget *widget : {static_cast<QWidget *>(&field), static_cast<QWidget *>(&next)})
            layout.addWidget(widget);
        window.show();
    }
    bool pick(QDate start, const std::function<void(QWidget &)> &act)
    {
        gui::activate(window);
        field.setFocus();
        return gui::withDialog([&] { pickDateFor(field, u"Select Sold Date"_s, Date::from(start), shared); },
                               act);
    }

    ScriptedDesktop desktop;
    SharedState shared;
    QWidget window;
    QVBoxLayout layout{&window};
    DateField field;
    QLineEdit next;
};

} // namespace

class CalendarTest : public QObject
{
    Q_OBJECT
private slots:
    void picking_data() { cases::add(); }
    void picking()
    {
        const auto [day, steps, text, region, pattern] = cases::row<5>();
        const QDate start = QDate::fromString(day, Qt::ISODate);
        const QLocale locale(region.isEmpty() ? u"en_US"_s : region);
        Form form(pattern.isEmpty() ? RegionalSettings(locale) : RegionalSettings(locale, pattern));
        QVERIFY(form.pick(start, [&, steps = steps](QWidget &calendar) {
            act(calendar, steps);
            QVERIFY(!calendar.isVisible());
        }));
        QCOMPARE(form.field.text(), text);
        QCOMPARE(formatShortDate(form.shared.PickDate, form.shared.regional), form.field.text());
        gui::activate(form.window);
        QVERIFY(gui::waitUntil([&] { return form.next.hasFocus(); }, "focus moved on"));
        // Only this once.
        form.field.setFocus();
        QCoreApplication::processEvents();
        QVERIFY(form.field.hasFocus());
        form.field.moveFocusOn(); // at once where the window is active
        QVERIFY(form.next.hasFocus());
        QCOMPARE(form.desktop.calls().size(), 0);
    }

    /// The second half of the double click that chose the day goes nowhere; any other click arrives.
    void secondHalfOfADoubleClick()
    {
        for (const auto &[afterMs, away] : {std::pair(150, QPoint(2, 1)), {900, {}}, {150, {40, 0}}})
            QCOMPARE(arrives(ulong(afterMs), away), afterMs == 900 || away.x() == 40);
    }

    void cellsWithoutADay()
    {
        Form form;
        QVERIFY(form.pick(QDate(2005, 4, 20), [](QWidget &calendar) {
            for (const auto &[row, column] : {std::pair(0, 3), {1, 0}, {1, 4}, {6, 0}, {6, 6}}) {
                clickCell(calendar, row, column);
                QVERIFY(calendar.isVisible());
                QCOMPARE(page(calendar), u"April 20 2005"_s);
            }
        }));
        QCOMPARE(form.field.text(), u"4/20/2005"_s);
    }

    void noDatesBeforeTheFirstAndAfterTheLastYear()
    {
        Form form;
        const std::pair<QDate, QString> limits[] = {
            {QDate(100, 1, 31), u"Spin1Down, Spin2Down, PgUp, =January 31 100"_s},
            {QDate(9999, 12, 31), u"Spin1Up, Spin2Up, PgDown, =December 31 9999"_s},
        };
        for (const auto &[start, steps] : limits) {
            form.desktop.reset();
            QVERIFY(form.pick(start, [steps = steps](QWidget &calendar) { act(calendar, steps); }));
            QCOMPARE(form.desktop.beeps(), 3);
            QCOMPARE(form.field.text(), formatShortDate(Date::from(start), form.shared.regional));
        }
    }

    void opens_data() { cases::add(); }
    void opens()
    {
        const auto [locale, expected, names] = cases::row<3>();
        const QString shown = expected, weekdays = names;
        Form form{RegionalSettings(QLocale(locale))};
        QVERIFY(form.pick(QDate(1852, 3, 3), [&](QWidget &calendar) {
            QCOMPARE(calendar.windowTitle(), u"Select Sold Date"_s);
            QCOMPARE(page(calendar), shown);
            QTableWidget &days = grid(calendar);
            QStringList heads;
            for (int column = 0; column < days.columnCount(); ++column)
                heads += days.item(0, column)->text();
            QCOMPARE(heads.join(u'|').remove(u'.'), weekdays);
            QCOMPARE(days.selectedItems(), QList{days.currentItem()});
            QCOMPARE(days.horizontalHeader()->length(), days.viewport()->width());
            QCOMPARE(days.verticalHeader()->length(), days.viewport()->height());
            const auto &month = gui::find<QLineEdit>(calendar, u"txtMonth"_s);
            QVERIFY(month.fontMetrics().horizontalAdvance(month.text()) < month.width());
            QVERIFY(month.geometry().right() < gui::find<QWidget>(calendar, u"Spin1"_s).x());
            QCOMPARE(gui::find<QWidget>(calendar, u"Spin2"_s).geometry().right(), days.geometry().right());
            // Nothing can be typed.
            for (const QString &name : {u"txtMonth"_s, u"txtYear"_s}) {
                gui::find<QLineEdit>(calendar, name).setFocus();
                QVERIFY(days.hasFocus());
                gui::type(u"x"_s);
            }
            QCOMPARE(page(calendar), shown);
        }));
    }

    void place_data() { cases::add(); }
    void place()
    {
        const auto [name, at, below, expected] = cases::row<4>();
        const auto point = [](const QString &text) {
            return QPoint(text.section(u' ', 0, 0).toInt(), text.section(u' ', 1).toInt());
        };
        const QRect field(point(at), QSize(120, 20));
        const QPoint place = point(expected);
        const QRect screen(0, 30, 1000, 770);
        const CalendarEdge edge = !below.isEmpty() ? CalendarEdge::Top : CalendarEdge::Bottom;
        const QPoint offsets[] = {QPoint(0, 0), QPoint(-1920, -200)}; // also a screen left of the main one
        for (const QPoint offset : offsets)
            QCOMPARE(
                calendarPlace(field.translated(offset), QSize(250, 200), screen.translated(offset), edge),
                place + offset);
        // What does not fit begins where the screen begins.
        QCOMPARE(calendarPlace(field, QSize(1200, 900), screen, edge), screen.topLeft());
    }

    void liesAtItsField()
    {
        Form form;
        const QRect screen = form.window.screen()->availableGeometry();
        form.window.move(screen.center());
        QVERIFY(form.pick(QDate(2005, 4, 20), [&](QWidget &calendar) {
            const QRect field(form.field.mapToGlobal(QPoint(0, 0)), form.field.size());
            QCOMPARE(calendar.frameGeometry().right(), field.right());
            QCOMPARE(calendar.frameGeometry().bottom(), field.bottom() + field.height());
        }));
        form.window.move(screen.topLeft());
        QVERIFY(form.pick(QDate(2005, 4, 20),
                          [&](QWidget &calendar) { QVERIFY(screen.contains(calendar.frameGeometry())); }));
    }

private:
    /// Whether a click on the field, so long after the one that chose a day and so far from it, is one.
    static bool arrives(ulong afterMs, QPoint away)
    {
        Form form;
        QPoint place;
        form.pick(QDate(2005, 4, 20), [&](QWidget &calendar) {
            const QTableWidget &days = grid(calendar);
            place = days.viewport()->mapToGlobal(days.visualItemRect(days.currentItem()).center());
            clickDay(calendar, 20);
        });
        const ulong clicked = QTest::lastMouseTimestamp - ulong(QTest::mouseDoubleClickInterval);
        gui::activate(form.window);
        gui::waitUntil([&] { return form.next.hasFocus(); }, "focus moved on");
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, form.field.geometry().center(), place + away, Qt::LeftButton,
                              Qt::LeftButton, {});
            event.setTimestamp(clicked + afterMs);
            QCoreApplication::sendEvent(form.window.windowHandle(), &event);
        }
        return form.field.hasFocus();
    }
};

QTEST_MAIN(CalendarTest)
#include "Calendar.moc"
