// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/EditorFixture.h"
#include "runtime/Formats.h"
#include "support/Cases.h"

using namespace obelmark;

namespace {

const QString oneCoin =
    u"insert into Coin (coinid, descr, Year, quantity, PurchaseDate, forsale, sold, wantlist) values"
    " (5, 'Alpha', 1876, 1, '2004-02-29', 0, 0, 0);"_s;

/// A click on the arrow of a drop-down.
void clickArrow(DateField &field)
{
    QStyleOptionComboBox option;
    option.initFrom(&field);
    option.editable = true;
    const QRect arrow =
        field.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &field);
    QTest::mouseClick(&field, Qt::LeftButton, {}, arrow.center());
}

} // namespace

/// The date fields of the main window, with their calendar.
class DateFieldsTest : public QObject
{
    Q_OBJECT
private slots:
    void calendarOfAField_data() { cases::add(); }
    void calendarOfAField()
    {
        const auto [field, typed, open, caption, closing, text, next] = cases::row<7>();
        const auto press = [](const QString &key) {
            gui::press(QKeySequence(key)[0].key(), QKeySequence(key)[0].keyboardModifiers());
        };
        const QString today = formatShortDate(Date::today(), RegionalSettings(QLocale(u"en_US"_s)));
        EditorFixture e(oneCoin);
        e.start();
        e.typeInto(field, typed);
        QVERIFY(gui::withDialog(
            [&, field = field, open = open] { open == u"arrow" ? clickArrow(e.date(field)) : press(open); },
            [&, caption = caption, closing = closing](QWidget &calendar) {
                QCOMPARE(calendar.objectName(), u"frmDateEnt"_s);
                QCOMPARE(calendar.windowTitle(), caption);
                press(closing);
            }));
        QCOMPARE(e.date(field).text(), text == u"today" ? today : text);
        gui::activate(*e.window);
        QVERIFY(
            gui::waitUntil([&, next = next] { return e.the<QWidget>(next).hasFocus(); }, "focus moved on"));
        QVERIFY(e.isEditing());
        QCOMPARE(e.desktop.calls().size(), 0); // no complaint of a wrong date that has been replaced
    }

    void pickedDateIsStored()
    {
        EditorFixture e(oneCoin);
        e.start();
        e.enter(u"dcPurchaseDate");
        QVERIFY(e.isBrowsing());
        QVERIFY(gui::withDialog([&] { clickArrow(e.date(u"dcPurchaseDate")); },
                                [](QWidget &) {
                                    gui::press(Qt::Key_PageDown, Qt::ControlModifier);
                                    gui::press(Qt::Key_Down);
                                    gui::press(Qt::Key_Return);
                                }));
        gui::activate(*e.window);
        QVERIFY(e.isEditing());
        e.press(u"cmdUpdate");
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.date(u"dcPurchaseDate").text(), u"2/8/2005"_s);
        e.close();
        QCOMPARE(e.collection.query(u"select PurchaseDate from Coin"_s), QStringList(u"2005-02-08"_s));
    }

    void nothingOpensWhileAnotherFieldIsRefused()
    {
        EditorFixture e(oneCoin);
        e.start();
        e.typeInto(u"txtPricePaid", u"abc"_s);
        e.desktop.expectMessage(u"You must enter a valid number or leave the field blank"_s);
        clickArrow(e.date(u"dcPurchaseDate"));
        QCOMPARE(e.desktop.calls().size(), 0);
        QVERIFY(gui::waitUntil([&] { return !e.desktop.calls().isEmpty(); }, "message came"));
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(e.date(u"dcPurchaseDate").text(), u"2/29/2004"_s);
        QVERIFY(gui::waitUntil([&] { return e.edit(u"txtPricePaid").hasFocus(); }, "focus came back"));
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void nothingOpensWithoutACoin()
    {
        EditorFixture e;
        e.start();
        e.the<QTabWidget>(u"Tab1").setCurrentIndex(1);
        clickArrow(e.date(u"dcSoldDate"));
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(e.date(u"dcSoldDate").text(), QString());
        QVERIFY(e.isBrowsing());
    }
};

QTEST_MAIN(DateFieldsTest)
#include "DateFields.moc"
