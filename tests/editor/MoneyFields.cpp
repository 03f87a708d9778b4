#include "EditorFixture.h"

using namespace obelmark;

namespace {

const QString oneCoin = u"insert into Coin (descr, quantity) values ('Alpha', 4)"_s;
const QString notANumber = u"You must enter a valid number or leave the field blank"_s;

} // namespace

class MoneyFieldsTest : public QObject
{
    Q_OBJECT
private slots:
    void totalsFollowPricesAndQuantity_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("price");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QString>("totalOfFive");
        QTest::newRow("US") << u"en_US"_s << u"2.5"_s << u"$2.50"_s << u"$10.00"_s << u"$12.50"_s;
        QTest::newRow("with symbol and groups")
            << u"en_US"_s << u"$1,234.5"_s << u"$1,234.50"_s << u"$4,938.00"_s << u"$6,172.50"_s;
        QTest::newRow("German") << u"de_DE"_s << u"2,5"_s << u"2,50\u00a0€"_s << u"10,00\u00a0€"_s
                                << u"12,50\u00a0€"_s;
        QTest::newRow("negative") << u"en_US"_s << u"(1)"_s << u"($1.00)"_s << u"($4.00)"_s << u"($5.00)"_s;
        QTest::newRow("cents beyond floating point")
            << u"en_US"_s << u"90071992547409.93"_s << u"$90,071,992,547,409.93"_s
            << u"$360,287,970,189,639.72"_s << u"$450,359,962,737,049.65"_s;
    }
    void totalsFollowPricesAndQuantity()
    {
        QFETCH(QString, locale);
        QFETCH(QString, typed);
        EditorFixture e(oneCoin, QLocale(locale));
        e.start();
        e.typeInto(u"txtPricePaid", typed);
        gui::press(Qt::Key_Tab);
        QTEST(e.edit(u"txtPricePaid").text(), "price");
        QTEST(e.edit(u"txtTotalPaid").text(), "total");
        QCOMPARE(e.edit(u"txtTotalVal").text(), QString());
        e.typeInto(u"txtQuantity", u"5"_s);
        gui::press(Qt::Key_Tab);
        QTEST(e.edit(u"txtTotalPaid").text(), "totalOfFive");
        QCOMPARE(e.edit(u"txtQuantity").text(), u"5"_s);
        // An emptied price empties its total.
        e.typeInto(u"txtPricePaid", QString());
        gui::press(Qt::Key_Tab);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), QString());
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void refusedOnLeaving_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("icon");
        const QString face = u"You must enter a valid number for face value or leave the field blank"_s;
        const QString quantity = u"You must enter a number in the Quantity field"_s;
        const QString issue = u"You must enter a valid issue date, or leave the field blank."_s;
        const QString sold = u"You must enter a valid sold date, or leave the field blank."_s;
        QTest::newRow("price") << u"txtPricePaid"_s << u"abc"_s << notANumber << int(Icon::None);
        QTest::newRow("value") << u"txtCatValue"_s << u"1.2.3"_s << notANumber << int(Icon::None);
        QTest::newRow("asking price") << u"txtPriceAsk"_s << u"-"_s << notANumber << int(Icon::None);
        QTest::newRow("face") << u"txtFace"_s << u"one"_s << face << int(Icon::None);
        QTest::newRow("quantity") << u"txtQuantity"_s << u"abc"_s << quantity << int(Icon::Critical);
        QTest::newRow("no quantity") << u"txtQuantity"_s << QString() << quantity << int(Icon::Critical);
        QTest::newRow("issue date") << u"dcIssueDate"_s << u"soon"_s << issue << int(Icon::None);
        QTest::newRow("sold date") << u"dcSoldDate"_s << u"13/13/13/13"_s << sold << int(Icon::None);
    }
    void refusedOnLeaving()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(QString, message);
        QFETCH(int, icon);
        EditorFixture e(oneCoin);
        e.start();
        const QString name = field;
        auto &control = e.the<QWidget>(name);
        e.typeInto(name, text);
        const auto refused = [&](const char *how) {
            if (!gui::waitUntil([&] { return control.hasFocus() && e.desktop.leftovers().isEmpty(); }, how))
                return false;
            return e.desktop.problems().isEmpty() && control.isVisible() && e.isEditing();
        };
        // By the Tab key,
        e.desktop.expectMessage(message, u"Obelmark"_s, Icon(icon));
        gui::press(Qt::Key_Tab);
        QVERIFY(refused("refused after Tab"));
        // by a click that would save,
        e.desktop.expectMessage(message, u"Obelmark"_s, Icon(icon));
        QTest::mouseClick(&e.button(u"cmdUpdate"), Qt::LeftButton);
        QVERIFY(refused("refused after a click"));
        // and by turning the page.
        e.desktop.expectMessage(message, u"Obelmark"_s, Icon(icon));
        auto &tabs = e.the<QTabWidget>(u"Tab1");
        if (tabs.currentWidget()->isAncestorOf(&control))
            tabs.setCurrentIndex(2);
        else
            e.the<QPlainTextEdit>(u"txtNotes").parentWidget()->setFocus(), e.box(u"chkWantList").setFocus();
        QVERIFY(refused("refused after another page"));
        // Another window in front is not leaving.
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(gui::waitUntil([&] { return other.isActiveWindow(); }, "other window active"));
        QTest::qWait(1);
        QVERIFY(gui::activate(*e.window));
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    // A menu that is opened and closed again is not leaving, but what comes after it is.
    void leavingThroughTheMenuBar()
    {
        EditorFixture e(oneCoin);
        e.start();
        auto &menus = e.the<QMenuBar>(u"mnuBar");
        e.typeInto(u"txtPricePaid", u"2.5"_s);
        menus.setFocus(Qt::MenuBarFocusReason);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), QString());
        e.enter(u"txtDescr");
        QCOMPARE(e.edit(u"txtTotalPaid").text(), u"$10.00"_s);

        e.typeInto(u"txtPricePaid", u"abc"_s);
        menus.setFocus(Qt::MenuBarFocusReason);
        e.desktop.expectMessage(notANumber);
        QTest::mouseClick(&e.button(u"cmdUpdate"), Qt::LeftButton);
        auto &price = e.edit(u"txtPricePaid");
        QVERIFY(
            gui::waitUntil([&] { return price.hasFocus() && price.selectedText() == u"abc"; }, "focus back"));
        QVERIFY(e.isEditing());
        e.typeInto(u"txtPricePaid", u"3"_s);
        e.edit(u"txtPricePaid").clearFocus();
        e.button(u"cmdUpdate").click();
        QCOMPARE(e.edit(u"txtTotalPaid").text(), u"$12.00"_s);
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void enteringSelectsTheWholeText()
    {
        EditorFixture e(
            u"insert into Coin (descr, quantity, face, priceask) values ('Alpha', 4, 12500, 100000)"_s);
        e.start();
        for (const auto *name : {u"txtFace", u"txtQuantity", u"txtPriceAsk"}) {
            e.enter(name);
            auto &field = e.edit(name);
            QVERIFY(
                gui::waitUntil([&] { return field.selectedText() == field.text(); }, "whole text selected"));
        }
        QVERIFY(e.isBrowsing());
    }
};

QTEST_MAIN(MoneyFieldsTest)
#include "MoneyFields.moc"
