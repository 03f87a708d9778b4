#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "dates/windows/DatePicker.h"
#include "runtime/Formats.h"
#include "support/GuiDriver.h"
#include "support/ScriptedDesktop.h"
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace obelmark;
using namespace Qt::StringLiterals;

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
    void picking_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QDate>("start");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("text");
        const auto row = [](QDate start, const QString &steps, const QString &text,
                            const QString &locale = u"en_US"_s, const QString &pattern = {}) {
            QTest::addRow("%s, %s", qPrintable(steps), qPrintable(text))
                << locale << pattern << start << steps << text;
        };
        const QDate april(2005, 4, 20);
        row(april, u"3"_s, u"4/3/2005"_s);
        row(april, u"3"_s, u"03.04.2005"_s, u"de_DE"_s);
        row(april, u"3"_s, u"2005/04/03"_s, u"ja_JP"_s);
        row(april, u"3"_s, u"2005/03/04"_s, u"en_US"_s, u"yyyy/dd/MM"_s);
        row(april, u"20"_s, u"4/20/2005"_s);
        row(QDate(100, 2, 28), u"3"_s, u"2/3/0100"_s);
        row(QDate(9999, 12, 31), u"3"_s, u"12/3/9999"_s);
        row(QDate(2005, 3, 31), u"Spin1Down, =February 1 2005, Spin1Up, Spin2Up, Spin2Up, Spin2Down, 31"_s,
            u"3/31/2006"_s);
        row(april, u"Return"_s, u"4/20/2005"_s);
        row(QDate(2005, 4, 2), u"Up, Left, Left, =April 1 2005, End, Right, Down, =April 30 2005, Escape"_s,
            u"4/2/2005"_s);
        row(april, u"Home, Right, Right, Down, Enter"_s, u"4/10/2005"_s);
        row(april, u"Right, PgDown, Ctrl+PgDown, =May 21 2006, PgUp, PgUp, Ctrl+PgUp, Return"_s,
            u"3/21/2005"_s);
        row(april, u"Spin1Up, Right, Escape"_s, u"4/20/2005"_s);
        row(april, u"close"_s, u"4/20/2005"_s);
    }
    void picking()
    {
        QFETCH(QString, locale);
        QFETCH(QString, pattern);
        QFETCH(QDate, start);
        QFETCH(QString, steps);
        Form form(pattern.isEmpty() ? RegionalSettings(QLocale(locale))
                                    : RegionalSettings(QLocale(locale), pattern));
        QVERIFY(form.pick(start, [&](QWidget &calendar) {
            act(calendar, steps);
            QVERIFY(!calendar.isVisible());
        }));
        QTEST(form.field.text(), "text");
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

    void secondHalfOfADoubleClick_data()
    {
        QTest::addColumn<int>("afterMs");
        QTest::addColumn<QPoint>("away");
        QTest::addColumn<bool>("arrives");
        QTest::newRow("of the same double click") << 150 << QPoint(2, 1) << false;
        QTest::newRow("a later click") << 900 << QPoint() << true;
        QTest::newRow("a click elsewhere") << 150 << QPoint(40, 0) << true;
    }
    void secondHalfOfADoubleClick()
    {
        QFETCH(int, afterMs);
        QFETCH(QPoint, away);
        Form form;
        QPoint place;
        QVERIFY(form.pick(QDate(2005, 4, 20), [&](QWidget &calendar) {
            const QTableWidget &days = grid(calendar);
            place = days.viewport()->mapToGlobal(days.visualItemRect(days.currentItem()).center());
            clickDay(calendar, 20);
        }));
        const ulong clicked = QTest::lastMouseTimestamp - ulong(QTest::mouseDoubleClickInterval);
        gui::activate(form.window);
        QVERIFY(gui::waitUntil([&] { return form.next.hasFocus(); }, "focus moved on"));
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, form.field.geometry().center(), place + away, Qt::LeftButton,
                              Qt::LeftButton, {});
            event.setTimestamp(clicked + ulong(afterMs));
            QCoreApplication::sendEvent(form.window.windowHandle(), &event);
        }
        QTEST(form.field.hasFocus(), "arrives");
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

    void opens_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("weekdays");
        QTest::newRow("US") << u"en_US"_s << u"March 3 1852"_s
                            << u" Sun | Mon | Tue | Wed | Thu | Fri | Sat "_s;
        QTest::newRow("German") << u"de_DE"_s << u"März 3 1852"_s << u" So | Mo | Di | Mi | Do | Fr | Sa "_s;
        QTest::newRow("Japanese") << u"ja_JP"_s << u"3月 3 1852"_s << u" 日 | 月 | 火 | 水 | 木 | 金 | 土 "_s;
    }
    void opens()
    {
        QFETCH(QString, locale);
        QFETCH(QString, shown);
        QFETCH(QString, weekdays);
        Form form{RegionalSettings(QLocale(locale))};
        QVERIFY(form.pick(QDate(1852, 3, 3), [&](QWidget &calendar) {
            QCOMPARE(calendar.windowTitle(), u"Select Sold Date"_s);
            QCOMPARE(page(calendar), shown);
            QTableWidget &days = grid(calendar);
            QStringList names;
            for (int column = 0; column < days.columnCount(); ++column)
                names += days.item(0, column)->text();
            QCOMPARE(names.join(u'|').remove(u'.'), weekdays);
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

    void place_data()
    {
        QTest::addColumn<QRect>("field");
        QTest::addColumn<bool>("below");
        QTest::addColumn<QPoint>("place");
        const QRect inside(500, 500, 120, 20);
        QTest::newRow("above") << inside << false << QPoint(370, 340);
        QTest::newRow("below") << inside << true << QPoint(370, 540);
        QTest::newRow("at the left") << QRect(10, 500, 120, 20) << false << QPoint(0, 340);
        QTest::newRow("at the top") << QRect(500, 100, 120, 20) << false << QPoint(370, 30);
        QTest::newRow("at the bottom") << QRect(500, 760, 120, 20) << false << QPoint(370, 600);
        QTest::newRow("at the bottom, below") << QRect(500, 760, 120, 20) << true << QPoint(370, 600);
        QTest::newRow("over the right edge") << QRect(950, 500, 120, 20) << false << QPoint(750, 340);
    }
    void place()
    {
        QFETCH(QRect, field);
        QFETCH(bool, below);
        QFETCH(QPoint, place);
        const QRect screen(0, 30, 1000, 770);
        const CalendarEdge edge = below ? CalendarEdge::Top : CalendarEdge::Bottom;
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
};

QTEST_MAIN(CalendarTest)
#include "Calendar.moc"
