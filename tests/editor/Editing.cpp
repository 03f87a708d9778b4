#include "EditorFixture.h"
#include <QDir>
#include <QFile>
#include <sqlite3.h>

using namespace obelmark;

namespace {

const QString twoCoins =
    u"insert into condition (conid, Condesc) values (901, 'Nice');"
    "insert into Coin (coinid, descr, Year, quantity, conid, pricepaid, totalpaid, forsale, sold, wantlist) "
    "values"
    " (5, 'Alpha', 1852, 2, 901, 25055, 50110, 0, 0, 0), (9, 'Beta', null, 1, null, null, null, 1, 0, 0);"_s;

/// What the user does to one of the fields.
using Act = void (*)(EditorFixture &);

} // namespace
Q_DECLARE_METATYPE(Act)

class EditingTest : public QObject
{
    Q_OBJECT
private slots:
    void everyChangeEntersTheEditingState_data()
    {
        QTest::addColumn<Act>("act");
        QTest::newRow("date written by a program")
            << Act([](EditorFixture &e) { e.date(u"dcSoldDate").setText(u"1/2/2003"_s); });
        QTest::newRow("list, a key that changes nothing") << Act([](EditorFixture &e) {
            e.list(u"cmbTyp").setFocus();
            gui::press(Qt::Key_Backspace);
        });
    }
    void everyChangeEntersTheEditingState()
    {
        QFETCH(Act, act);
        EditorFixture e(twoCoins);
        e.start();
        QVERIFY(e.isBrowsing());
        act(e);
        QVERIFY(e.isEditing());
        e.window->MakingChange();
        QVERIFY(e.isEditing());
        e.press(u"cmdCancel");
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.shownCoin(), u"Beta"_s); // the last one, whichever was being changed
        e.press(u"cmdFirst");
        QCOMPARE(e.list(u"cmbCon").currentText(), u"Nice"_s);
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void keysThatAreNotMeantForAList()
    {
        EditorFixture e(twoCoins);
        e.start();
        for (const int key : {int(Qt::Key_Shift), int(Qt::Key_Tab), int(Qt::Key_F1), int(Qt::Key_Control)}) {
            e.list(u"cmbCon").setFocus();
            gui::press(Qt::Key(key));
        }
        e.list(u"cmbCon").setFocus();
        gui::press(Qt::Key_N, Qt::AltModifier);
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.shownCoin(), u"Beta"_s);
    }

    // The button of an access key may be hidden, or lie on another page: the letter must not become text.
    void accessKeysWithoutAButtonTypeNothing()
    {
        EditorFixture e(twoCoins);
        e.start();
        e.enter(u"txtDescr");
        gui::press(Qt::Key_O, Qt::AltModifier);
        gui::press(Qt::Key_U, Qt::AltModifier);
        QCOMPARE(e.shownCoin(), u"Alpha"_s);
        QVERIFY(e.isBrowsing());
        e.typeInto(u"txtDescr", u"Aleph"_s);
        gui::press(Qt::Key_N, Qt::AltModifier);
        e.enter(u"txtNotes");
        gui::press(Qt::Key_L, Qt::AltModifier);
        QCOMPARE(e.shownCoin(), u"Aleph"_s);
        QCOMPARE(e.the<QPlainTextEdit>(u"txtNotes").toPlainText(), QString());
        // It acts at once: what is typed next belongs to the next coin.
        gui::press(Qt::Key_U, Qt::AltModifier);
        QVERIFY(e.isBrowsing());
        e.press(u"cmdFirst");
        e.enter(u"txtDescr");
        gui::press(Qt::Key_N, Qt::AltModifier);
        QCOMPARE(e.shownCoin(), u"Beta"_s);
    }

    void openListIsEmptied()
    {
        EditorFixture e(twoCoins);
        e.start();
        LookupList &list = e.list(u"cmbCon");
        list.setFocus();
        list.showPopup();
        QTest::keyClick(list.view(), Qt::Key_Delete);
        QVERIFY(!list.view()->isVisible());
        QCOMPARE(list.currentIndex(), -1);
        QVERIFY(e.isEditing());
    }

    void deleting()
    {
        EditorFixture e(twoCoins);
        e.collection.addPicture(u"00000005.gif"_s);
        e.collection.addPicture(u"00000009.jpg"_s);
        e.start();
        const QString question = u"Are you sure that you want to delete this Coin record?"_s;
        e.desktop.answerYesNo(question, u"Delete Coin"_s, Answer::No);
        e.press(u"cmdDelete");
        QCOMPARE(e.shownCoin(), u"Alpha"_s);
        e.press(u"cmdLast");
        e.desktop.answerYesNo(question, u"Delete Coin"_s, Answer::Yes);
        e.press(u"cmdDelete");
        QCOMPARE(e.shownCoin(), u"Alpha"_s);
        QVERIFY(!QFile::exists(u"images/00000009.jpg"_s));
        QVERIFY(QFile::exists(u"images/00000005.gif"_s));
        e.desktop.answerYesNo(question, u"Delete Coin"_s, Answer::Yes);
        e.press(u"cmdDelete");
        QCOMPARE(e.shownCoin(), QString());
        QVERIFY(!e.edit(u"txtDescr").isEnabled());
        QVERIFY(!QFile::exists(u"images/00000005.gif"_s));
        e.press(u"cmdDelete"); // there is nothing to ask about
        QCOMPARE(e.desktop.problems(), QStringList());
        // A key that was given once is never given again.
        e.press(u"cmdAddNew");
        gui::type(u"New"_s);
        e.press(u"cmdUpdate");
        e.close();
        QCOMPARE(e.collection.query(u"select coinid, descr from Coin"_s), QStringList(u"10|New"_s));
    }

    void hintsTellWhatSavingDoes_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("hint");
        const auto row = [](const QString &field, const QString &text, const QString &hint) {
            QTest::addRow("%s", qPrintable(text + u' ' + hint)) << field << text << hint;
        };
        row(u"txtYear"_s, u"1878-S"_s, u"Year: '1878-S' is not a number; it will be saved empty."_s);
        row(u"txtYear"_s, u"1878-"_s, u"Year: will be saved as -1878."_s);
        row(u"txtYear"_s, u"40000"_s, u"Year: must lie between -32,768 and 32,767."_s);
        row(u"txtYear"_s, u"1,000"_s, QString());
        row(u"txtQuantity"_s, u"2.5"_s, u"Quantity: will be saved as 2."_s);
        row(u"txtQuantity"_s, u"1e3"_s, u"Quantity: will be saved as 1000."_s);
        row(u"txtQuantity"_s, u"two"_s, u"Quantity: 'two' is not a number."_s);
        row(u"txtQuantity"_s, QString(), u"Quantity: must not be empty."_s);
        row(u"txtPricePaid"_s, u"2.505"_s, u"Price Paid: will be saved as $2.51."_s);
        row(u"txtPricePaid"_s, u"1e3"_s, u"Price Paid: will be saved as $1,000.00."_s);
        row(u"txtPricePaid"_s, u"922337203685477.5808"_s,
            u"Price Paid: must not exceed $922,337,203,685,477.58."_s);
        row(u"txtPricePaid"_s, u"-900000000000000"_s,
            u"Total Paid: must not be below ($922,337,203,685,477.58)."_s);
        row(u"txtPricePaid"_s, u"2.5"_s, QString());
        row(u"dcIssueDate"_s, u"1/1/2002"_s, u"Issue Date: will be saved as 1/1/1902."_s);
        row(u"dcIssueDate"_s, u"13/13"_s, u"Issue Date: '13/13' is not a date."_s);
        row(u"dcPurchaseDate"_s, u"soon"_s,
            u"Purchase Date: 'soon' is not a date; it will be saved empty."_s);
        row(u"dcPurchaseDate"_s, u"7/4/76"_s, u"Purchase Date: will be saved as 7/4/1976."_s);
        row(u"dcPurchaseDate"_s, u"07/04/1976"_s, QString());
    }
    void hintsTellWhatSavingDoes()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(QString, hint);
        EditorFixture e(u"insert into Coin (descr, quantity, year) values ('Alpha', 5, 1902)"_s);
        e.start();
        e.typeInto(field, text);
        const auto &note = e.the<QLabel>(u"lblNote");
        QTRY_COMPARE(note.text(), hint.isEmpty() ? QDir::currentPath() : hint);
        const QString told = hint.startsWith(u"Total"_s) ? u"txtTotalPaid"_s : field;
        QCOMPARE(e.the<QWidget>(told).accessibleDescription(), hint);
        if (!hint.contains(u"saved"_s))
            return;
        e.press(u"cmdUpdate");
        QVERIFY(e.isBrowsing());
        const QString shown =
            e.the<QWidget>(field).property(field[0] == u'd' ? "currentText" : "text").toString();
        QVERIFY2(hint.endsWith(shown.isEmpty() ? u" empty."_s : u" %1."_s.arg(shown)), qPrintable(shown));
        QTRY_COMPARE(note.text(), QDir::currentPath());
    }

    void issueDateTakesTheCenturyOfTheYear()
    {
        EditorFixture e(twoCoins);
        e.start();
        e.date(u"dcIssueDate").setText(u"5/3/52"_s);
        e.press(u"cmdUpdate");
        e.close();
        QCOMPARE(e.collection.query(u"select issuedate from Coin where coinid = 5"_s),
                 QStringList(u"1852-05-03"_s));
    }

    // What cannot be stored is reported and ends the program; the file keeps what it had.
    void valueThatCannotBeStoredEndsTheProgram_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("year") << u"txtYear"_s << u"40000"_s;
        QTest::newRow("quantity") << u"txtQuantity"_s << u"3000000000"_s;
        QTest::newRow("price") << u"txtPricePaid"_s << u"1e300"_s;
        QTest::newRow("total") << u"txtCatValue"_s << u"900000000000000"_s;
    }
    void valueThatCannotBeStoredEndsTheProgram()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        EditorFixture e(twoCoins);
        e.start();
        e.typeInto(field, text);
        e.desktop.expectMessage(u"6  Overflow"_s);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.button(u"cmdUpdate").click());
        QCOMPARE(e.desktop.problems(), QStringList());
        e.close();
        QCOMPARE(e.collection.query(u"select Year, quantity, pricepaid from Coin where coinid = 5"_s),
                 QStringList(u"1852|2|25055"_s));
    }

    void fullDiskWhileSaving()
    {
        EditorFixture e(twoCoins);
        e.start();
        e.typeInto(u"txtDescr", u"Other"_s);
        e.shared->CoinDatabase->setFaultHook(
            [](FaultPoint point) { return point == FaultPoint::Update ? SQLITE_FULL : 0; });
        e.desktop.expectMessage(u"61  Disk full"_s);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.button(u"cmdUpdate").click());
        QCOMPARE(e.desktop.problems(), QStringList());
        e.close();
        QCOMPARE(e.collection.query(u"select descr from Coin order by coinid"_s),
                 QStringList({u"Alpha"_s, u"Beta"_s}));
    }

    // A text that could not have been typed, longer than the limit and with line breaks, survives an edit of
    // another field, and so do bytes. What no price, date or key can be shows as nothing and becomes that.
    void storedTextSurvivesAnEdit()
    {
        const QString text = QString(300, u'x') + u"\r\n\ttab\u00a0\u2028\u0001 end"_s;
        EditorFixture e(u"insert into Coin (descr, quantity, notes, misc1, face, SoldDate, Year, couid) "
                        "values ('%1', 1, '%1', x'00ff', 2.5, 'soon', 99999, 'x')"_s.arg(text));
        e.start();
        e.typeInto(u"txtMetal", QString(90, u'm'));
        QCOMPARE(e.edit(u"txtMetal").text().size(), 80);
        // The limit must not leave half a character.
        e.edit(u"txtMisc2").insert(u"a\tb\r\nc\0d"_s); // as the clipboard brings it
        e.edit(u"txtErrors").insert(QString(49, u'e') + u"\U0001F4B0"_s);
        e.press(u"cmdUpdate");
        e.close();
        QCOMPARE(e.collection.query(u"select descr, notes, length(Metal), Errors, misc2, hex(misc1), face, "
                                    "SoldDate, Year, couid from Coin"_s),
                 QStringList(u"%1|%1|80|%2|a b cd|00FF|NULL|NULL|NULL|NULL"_s.arg(text, QString(49, u'e'))));
    }
};

QTEST_MAIN(EditingTest)
#include "Editing.moc"
