// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "coins/WriteStep.h"
#include "store/CoinFile.h"

using namespace obelmark;

namespace {

const QString threeCoins =
    u"insert into condition (conid, Condesc) values (901, 'Nice');"
    "insert into Coin (descr, catnum, catsort, face, Year, wantlist, quantity, conid, issuedate, pricepaid, "
    "totalpaid,"
    "                  PurchaseDate, sold, notes) values"
    " ('Beta', 'KM 100', '                 100', 10000, 1999, 0, 3, 901, '1852-05-03', 12345600, 37036800,"
    "  '2005-12-31', 1, 'line 1' || char(13) || char(10) || 'line 2'),"
    " ('alpha', 'KM 9', '                   9', null, 2005, 1, null, null, null, null, null, null, null, "
    "null),"
    " ('Gamma', 'KM 20', '                  20', -25500, 1852, null, 1, 999, 'nonsense', 'x', null, null, 0, '');"_s;

} // namespace

class BrowsingTest : public QObject
{
    Q_OBJECT
private slots:
    // A key that matches no entry, a date and a price that are none.
    void valuesThatAreNone()
    {
        EditorFixture e(threeCoins);
        e.start();
        e.press(u"cmdLast");
        QCOMPARE(e.shownCoin(), u"Gamma"_s);
        QCOMPARE(e.list(u"cmbCon").currentIndex(), -1);
        QCOMPARE(e.date(u"dcIssueDate").text(), QString());
        QCOMPARE(e.edit(u"txtPricePaid").text(), QString());
    }

    // What another window writes is shown at once, but not while a coin is typed.
    void changesOfOthers()
    {
        EditorFixture e(threeCoins);
        e.start();
        const auto coins = openCoins(*e.shared->CoinDatabase); // on "alpha", as the window
        const auto write = [&](Dynaset &rows, bool removes) {
            WriteStep step(*e.shared, StepKind::Bulk, {}, nullptr);
            QVERIFY((removes ? step.remove(rows) : step.update(rows)) && step.commit());
        };
        coins->edit();
        coins->setValue(u"descr", u"zeta"_s);
        write(*coins, false);
        QCOMPARE(e.shownCoin(), u"zeta"_s);
        const auto entries =
            e.shared->CoinDatabase->openDynaset(lookupTable(Lookup::Conditions).entriesQuery());
        entries->addNew();
        entries->setValue(u"Condesc", u"new"_s);
        write(*entries, false);
        QVERIFY(e.list(u"cmbCon").findText(u"new"_s) >= 0);
        write(*coins, true);
        QCOMPARE(e.shownCoin(), u"Gamma"_s);
        e.typeInto(u"txtDescr", u"typed"_s);
        while (!coins->isEmpty()) {
            coins->moveFirst();
            write(*coins, true);
        }
        QCOMPARE(e.shownCoin(), u"typed"_s);
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void tabKeyWalksThroughThePages()
    {
        EditorFixture e(threeCoins);
        e.start();
        QVERIFY(gui::focusByMouse(e.edit(u"txtDescr")));
        const QStringList expected =
            QStringLiteral("txtCatNum txtFace txtYear chkWantList txtQuantity cmbCon cmbCou cmbMin cmbCat "
                           "cmbTyp cmbFor txtSerNum txtMetal txtErrors dcIssueDate cmbBou txtPricePaid "
                           "dcPurchaseDate txtCatValue dcSoldDate chkForSale chkSold txtPriceAsk "
                           "cmdSoldSome txtNotes txtMisc1 txtMisc2")
                .split(u' ');
        // The coin shown first has no quantity, which cannot be left; give it one.
        e.typeInto(u"txtQuantity", u"1"_s);
        e.press(u"cmdUpdate");
        QVERIFY(gui::focusByMouse(e.edit(u"txtDescr")));
        QStringList visited;
        for (qsizetype i = 0; i < expected.size(); ++i) {
            gui::press(Qt::Key_Tab);
            visited << e.window->focusWidget()->objectName();
        }
        QCOMPARE(visited, expected);
        QVERIFY(e.edit(u"txtMisc2").isVisible());
        for (qsizetype i = 0; i < 2; ++i)
            gui::press(Qt::Key_Backtab);
        QVERIFY(e.the<QPlainTextEdit>(u"txtNotes").hasFocus());
        QVERIFY(e.isBrowsing());
    }

    void helpTopics()
    {
        EditorFixture e(threeCoins);
        e.start();
        e.enter(u"txtMetal");
        gui::press(Qt::Key_F1);
        e.enter(u"dcIssueDate");
        gui::press(Qt::Key_F1);
        QDialog box(e.window.get()); // a message, the calendar
        QPushButton ok(&box);
        box.open();
        QVERIFY(gui::activate(box));
        QTest::keyClick(&ok, Qt::Key_F1);
        box.close();
        QVERIFY(gui::activate(*e.window));
        QDialog another(e.window.get()); // one that a button's access key brings up
        QPushButton yes(&another);
        connect(&e.button(u"cmdFirst"), &QPushButton::clicked, &another, &QDialog::open);
        gui::press(Qt::Key_T, Qt::AltModifier);
        QVERIFY(gui::activate(another));
        QTest::keyClick(&yes, Qt::Key_F1);
        another.close();
        auto &menu = e.the<QMenu>(u"mnuReportsMenu");
        menu.popup(QPoint(0, 0));
        menu.setActiveAction(&e.the<QAction>(u"mnuRptForSale"));
        QTest::keyClick(&menu, Qt::Key_F1);
        QVERIFY(!menu.isVisible());
        QVERIFY(gui::waitUntil([&] { return e.desktop.calls().size() == 5; }, "help on the menu item"));
        QList<int> topics;
        for (const auto &call : e.desktop.calls())
            topics << call.topic;
        QCOMPARE(topics, QList<int>({32, 40, 40, 14, 73}));
        QVERIFY(e.desktop.calls().first().text.endsWith(u"/coin.hlp"));
        QVERIFY(e.isBrowsing());

        e.desktop.reset();
        for (int i = 1; i <= 3; ++i)
            QVERIFY(gui::trigger(*e.window, u"mnuHelp_%1"_s.arg(i)));
        QCOMPARE(e.desktop.count(ScriptedDesktop::Kind::HelpContents), 1);
        QCOMPARE(e.desktop.count(ScriptedDesktop::Kind::HelpSearch), 1);
        QCOMPARE(e.desktop.count(ScriptedDesktop::Kind::HelpOnHelp), 1);
    }

    void aboutWindow()
    {
        EditorFixture e;
        e.start();
        QVERIFY(gui::trigger(*e.window, u"mnuAbout"_s));
        auto &about = e.the<QWidget>(u"frmAbout");
        QVERIFY(gui::activate(about));
        QCOMPARE(about.windowTitle(), u"About Obelmark"_s);
        QVERIFY(!about.isModal());
        auto &link = gui::find<QLabel>(about, u"Label9"_s);
        QTest::mouseClick(&link, Qt::LeftButton);
        QCOMPARE(e.desktop.calls().size(), 1);
        QCOMPARE(e.desktop.calls().first().text, u"https://obelmark.example/"_s);
        const QPointer<QWidget> watched(&about);
        QVERIFY(gui::click(gui::find<QPushButton>(about, u"cmdOK"_s)));
        QVERIFY(gui::waitUntil([&] { return watched.isNull(); }, "about window gone"));
    }
};

QTEST_MAIN(BrowsingTest)
#include "Browsing.moc"
