// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "support/Cases.h"

using namespace obelmark;

namespace {

const QString oneCoin = u"insert into Coin (descr, quantity) values ('Alpha', 4)"_s;
const QString notANumber = u"You must enter a valid number or leave the field blank"_s;

} // namespace

class MoneyFieldsTest : public QObject
{
    Q_OBJECT
private slots:
    void totalsFollowPricesAndQuantity_data() { cases::add(); }
    void totalsFollowPricesAndQuantity()
    {
        const auto [locale, typed, price, total, totalOfFive] = cases::row<5>();
        EditorFixture e(oneCoin, QLocale(locale));
        e.start();
        e.typeInto(u"txtPricePaid", typed);
        gui::press(Qt::Key_Tab);
        QCOMPARE(e.edit(u"txtPricePaid").text(), price);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), total);
        QCOMPARE(e.edit(u"txtTotalVal").text(), QString());
        e.typeInto(u"txtQuantity", u"5"_s);
        gui::press(Qt::Key_Tab);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), totalOfFive);
        QCOMPARE(e.edit(u"txtQuantity").text(), u"5"_s);
        // An emptied price empties its total.
        e.typeInto(u"txtPricePaid", QString());
        gui::press(Qt::Key_Tab);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), QString());
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void refusedOnLeaving_data() { cases::add(); }
    void refusedOnLeaving()
    {
        const auto [name, text, message, kind] = cases::row<4>();
        const Icon icon = kind.isEmpty() ? Icon::None : Icon::Critical;
        EditorFixture e(oneCoin);
        e.start();
        auto &control = e.the<QWidget>(name);
        e.typeInto(name, text);
        const auto refused = [&](const char *how) {
            if (!gui::waitUntil([&] { return control.hasFocus() && e.desktop.leftovers().isEmpty(); }, how))
                return false;
            return e.desktop.problems().isEmpty() && control.isVisible() && e.isEditing();
        };
        // By the Tab key,
        e.desktop.expectMessage(message, u"Obelmark"_s, icon);
        gui::press(Qt::Key_Tab);
        QVERIFY(refused("refused after Tab"));
        // by a click that would save,
        e.desktop.expectMessage(message, u"Obelmark"_s, icon);
        QTest::mouseClick(&e.button(u"cmdUpdate"), Qt::LeftButton);
        QVERIFY(refused("refused after a click"));
        // and by turning the page.
        e.desktop.expectMessage(message, u"Obelmark"_s, icon);
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
