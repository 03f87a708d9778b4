#include "EditorFixture.h"
#include <QDialog>

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
    void coinInTheFields()
    {
        EditorFixture e(threeCoins);
        e.start();
        QCOMPARE(e.shownCoin(), u"alpha"_s);
        QCOMPARE(e.the<QLabel>(u"lblPrice").text(), u"Will Pay"_s);
        QCOMPARE(e.edit(u"txtQuantity").text(), QString());
        QCOMPARE(e.list(u"cmbCon").currentIndex(), -1);
        QVERIFY(!e.box(u"chkSold").isChecked());

        e.press(u"cmdNext");
        QCOMPARE(e.shownCoin(), u"Beta"_s);
        QCOMPARE(e.the<QLabel>(u"lblPrice").text(), u"Price Paid"_s);
        QCOMPARE(e.edit(u"txtFace").text(), u"$1.00"_s);
        QCOMPARE(e.edit(u"txtYear").text(), u"1999"_s);
        QCOMPARE(e.edit(u"txtQuantity").text(), u"3"_s);
        QCOMPARE(e.list(u"cmbCon").currentText(), u"Nice"_s);
        QCOMPARE(e.date(u"dcIssueDate").text(), u"5/3/1852"_s);
        QCOMPARE(e.edit(u"txtPricePaid").text(), u"$1,234.56"_s);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), u"$3,703.68"_s);
        QCOMPARE(e.date(u"dcPurchaseDate").text(), u"12/31/2005"_s);
        QVERIFY(e.box(u"chkSold").isChecked());
        QCOMPARE(e.the<QPlainTextEdit>(u"txtNotes").toPlainText(), u"line 1\nline 2"_s);

        // A key that matches no entry, a date and a price that are none, negative money.
        e.press(u"cmdNext");
        QCOMPARE(e.shownCoin(), u"Gamma"_s);
        QCOMPARE(e.list(u"cmbCon").currentIndex(), -1);
        QCOMPARE(e.date(u"dcIssueDate").text(), QString());
        QCOMPARE(e.edit(u"txtPricePaid").text(), QString());
        QCOMPARE(e.edit(u"txtFace").text(), u"($2.55)"_s);
        QVERIFY(e.isBrowsing());
    }

    void moving()
    {
        EditorFixture e(threeCoins);
        e.start();
        const auto &position = e.the<QLabel>(u"lblPosition");
        QTRY_COMPARE(position.text(), u"Coin 1 of 3"_s);
        e.press(u"cmdPrevious");
        QCOMPARE(e.shownCoin(), u"alpha"_s);
        QCOMPARE(e.desktop.beeps(), 1);
        e.press(u"cmdLast");
        QCOMPARE(e.shownCoin(), u"Gamma"_s);
        e.press(u"cmdNext");
        QCOMPARE(e.shownCoin(), u"Gamma"_s);
        QCOMPARE(e.desktop.beeps(), 2);
        QTRY_COMPARE(position.text(), u"Coin 3 of 3"_s);
        e.press(u"cmdPrevious");
        QCOMPARE(e.shownCoin(), u"Beta"_s);
        QTRY_COMPARE(position.text(), u"Coin 2 of 3"_s);
        e.press(u"cmdFirst");
        QCOMPARE(e.shownCoin(), u"alpha"_s);
        QCOMPARE(e.desktop.beeps(), 2);
    }

    void sorting_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QStringList>("order");
        QTest::newRow("description") << 1 << QStringList{u"alpha"_s, u"Beta"_s, u"Gamma"_s};
        QTest::newRow("catalogue number") << 2 << QStringList{u"alpha"_s, u"Gamma"_s, u"Beta"_s};
        QTest::newRow("year") << 3 << QStringList{u"Gamma"_s, u"Beta"_s, u"alpha"_s};
    }
    void sorting()
    {
        QFETCH(int, index);
        QFETCH(QStringList, order);
        EditorFixture e(threeCoins);
        e.start();
        e.press(u"cmdNext");
        QVERIFY(gui::trigger(*e.window, u"mnuSort_%1"_s.arg(index)));
        QStringList shown;
        for (int i = 0; i < 3; ++i) {
            shown << e.shownCoin();
            e.press(u"cmdNext");
        }
        QCOMPARE(shown, order);
        QCOMPARE(e.shared->SortOrder, index);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(e.the<QAction>(u"mnuSort_%1"_s.arg(i)).isChecked(), i == index);
    }

    void emptyTable()
    {
        EditorFixture e;
        e.start();
        QVERIFY(!e.edit(u"txtDescr").isEnabled());
        QVERIFY(!e.list(u"cmbCon").isEnabled());
        for (const auto *name : {u"cmdFirst", u"cmdPrevious", u"cmdNext", u"cmdLast", u"cmdDelete"})
            e.press(name);
        QVERIFY(gui::trigger(*e.window, u"mnuSort_3"_s));
        e.desktop.expectMessage(u"No coins entered to find."_s, u"No Coins in Database"_s);
        e.press(u"cmdFind");
        QCOMPARE(e.desktop.problems(), QStringList());
        QCOMPARE(e.desktop.beeps(), 0);
        const auto &position = e.the<QLabel>(u"lblPosition");
        QTRY_COMPARE(position.text(), u"No coins"_s);
        e.press(u"cmdAddNew");
        QVERIFY(e.edit(u"txtDescr").isEnabled());
        QVERIFY(e.edit(u"txtDescr").hasFocus());
        QTRY_COMPARE(position.text(), u"New coin"_s);
        e.press(u"cmdCancel");
        QTRY_COMPARE(position.text(), u"No coins"_s);
        QVERIFY(!e.edit(u"txtDescr").isEnabled());
        QVERIFY(e.isBrowsing());
    }

    // Another window has changed two lists; only those are rebuilt, the coin's entry stays selected.
    void staleListsAreReloadedOnReturn()
    {
        EditorFixture e(threeCoins);
        e.start();
        e.press(u"cmdNext");
        const auto addEntry = [&](const QString &sql, const char16_t *column, const QString &text) {
            const auto entries = e.shared->CoinDatabase->openDynaset(sql);
            entries->addNew();
            entries->setValue(column, text);
            entries->update();
        };
        addEntry(u"select * from condition order by Condesc"_s, u"Condesc", u"  Aaa"_s);
        addEntry(u"select * from country order by coudesc"_s, u"coudesc", u"  Aaa"_s);
        const auto comeBack = [&] {
            QWidget other;
            other.show();
            other.activateWindow();
            QVERIFY(gui::waitUntil([&] { return other.isActiveWindow(); }, "other window active"));
            QVERIFY(gui::activate(*e.window));
        };
        e.shared->ReloadConditions = true;
        comeBack();
        QCOMPARE(e.list(u"cmbCon").itemText(0), u"  Aaa"_s);
        QCOMPARE(e.list(u"cmbCon").currentText(), u"Nice"_s);
        QVERIFY(e.list(u"cmbCou").itemText(0) != u"  Aaa");
        QVERIFY(!e.shared->ReloadConditions);
        QVERIFY(e.isBrowsing());

        // While a coin is being edited the edits stay.
        e.typeInto(u"txtDescr", u"Changed"_s);
        e.shared->ReloadCountries = true;
        comeBack();
        QCOMPARE(e.list(u"cmbCou").itemText(0), u"  Aaa"_s);
        QCOMPARE(e.shownCoin(), u"Changed"_s);
        QVERIFY(e.isEditing());
    }

    void tabKeyWalksThroughThePages()
    {
        EditorFixture e(threeCoins);
        e.start();
        QVERIFY(gui::focusByMouse(e.edit(u"txtDescr")));
        const QStringList expected{u"txtCatNum"_s,    u"txtFace"_s,        u"txtYear"_s,     u"chkWantList"_s,
                                   u"txtQuantity"_s,  u"cmbCon"_s,         u"cmbCou"_s,      u"cmbMin"_s,
                                   u"cmbCat"_s,       u"cmbTyp"_s,         u"cmbFor"_s,      u"txtSerNum"_s,
                                   u"txtMetal"_s,     u"txtErrors"_s,      u"dcIssueDate"_s, u"cmbBou"_s,
                                   u"txtPricePaid"_s, u"dcPurchaseDate"_s, u"txtCatValue"_s, u"dcSoldDate"_s,
                                   u"chkForSale"_s,   u"chkSold"_s,        u"txtPriceAsk"_s, u"cmdSoldSome"_s,
                                   u"txtNotes"_s,     u"txtMisc1"_s,       u"txtMisc2"_s};
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
