#include "editor/EditorFixture.h"
#include "runtime/Formats.h"
#include <QStyleOptionComboBox>
#include <QTableWidget>

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

using Open = void (*)(DateField &);
const Open byArrow = [](DateField &field) { clickArrow(field); };
const Open byF4 = [](DateField &) { gui::press(Qt::Key_F4); };
const Open byAltDown = [](DateField &) { gui::press(Qt::Key_Down, Qt::AltModifier); };

QString today()
{
    return formatShortDate(Date::today(), RegionalSettings(QLocale(u"en_US"_s)));
}

} // namespace
Q_DECLARE_METATYPE(Open)

/// The date fields of the main window, with their calendar.
class DateFieldsTest : public QObject
{
    Q_OBJECT
private slots:
    void calendarOfAField_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Open>("open");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("next");
        const auto row = [](const QString &field, const QString &typed, Open open, const QString &caption,
                            Qt::Key key, const QString &text, const QString &next) {
            QTest::addRow("%s, %s", qPrintable(field), qPrintable(typed))
                << field << typed << open << caption << int(key) << text << next;
        };
        // The issue date in the century of the coin.
        row(u"dcIssueDate"_s, u"7/4/76"_s, byArrow, u"Select Issue Date"_s, Qt::Key_Return, u"7/4/1876"_s,
            u"cmbBou"_s);
        row(u"dcIssueDate"_s, u"soon"_s, byF4, u"Select Issue Date"_s, Qt::Key_Escape, u"1/1/1876"_s,
            u"cmbBou"_s);
        row(u"dcPurchaseDate"_s, u"4/3/05"_s, byAltDown, u"Select Purchase Date"_s, Qt::Key_Escape,
            u"4/3/2005"_s, u"txtCatValue"_s);
        row(u"dcPurchaseDate"_s, QString(), byArrow, u"Select Purchase Date"_s, Qt::Key_Escape, today(),
            u"txtCatValue"_s);
        row(u"dcSoldDate"_s, u"soon"_s, byF4, u"Select Sold Date"_s, Qt::Key_Return, today(),
            u"chkForSale"_s);
    }
    void calendarOfAField()
    {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(Open, open);
        QFETCH(QString, caption);
        QFETCH(int, key);
        QFETCH(QString, text);
        QFETCH(QString, next);
        EditorFixture e(oneCoin);
        e.start();
        e.typeInto(field, typed);
        QVERIFY(gui::withDialog([&] { open(e.date(field)); },
                                [&](QWidget &calendar) {
                                    QCOMPARE(calendar.objectName(), u"frmDateEnt"_s);
                                    QCOMPARE(calendar.windowTitle(), caption);
                                    gui::press(Qt::Key(key));
                                }));
        QCOMPARE(e.date(field).text(), text);
        gui::activate(*e.window);
        QVERIFY(gui::waitUntil([&] { return e.the<QWidget>(next).hasFocus(); }, "focus moved on"));
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
