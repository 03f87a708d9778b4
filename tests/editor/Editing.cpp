// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "support/Cases.h"
#include <sqlite3.h>

using namespace obelmark;

namespace {

const QString twoCoins =
    u"insert into condition (conid, Condesc) values (901, 'Nice');"
    "insert into Coin (coinid, descr, Year, quantity, conid, pricepaid, totalpaid, forsale, sold, wantlist) "
    "values"
    " (5, 'Alpha', 1852, 2, 901, 25055, 50110, 0, 0, 0), (9, 'Beta', null, 1, null, null, null, 1, 0, 0);"_s;

} // namespace

class EditingTest : public QObject
{
    Q_OBJECT
private slots:
    void everyChangeEntersTheEditingState()
    {
        EditorFixture e(twoCoins);
        e.start();
        QVERIFY(e.isBrowsing());
        e.date(u"dcSoldDate").setText(u"1/2/2003"_s); // as a program writes it
        QVERIFY(e.isEditing());
        e.window->MakingChange();
        QVERIFY(e.isEditing());
        e.press(u"cmdCancel");
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.shownCoin(), u"Beta"_s); // the last one, whichever was being changed
        e.press(u"cmdFirst");
        QCOMPARE(e.list(u"cmbCon").currentText(), u"Nice"_s);
        e.list(u"cmbTyp").setFocus();
        gui::press(Qt::Key_Backspace); // changes nothing, and counts all the same
        QVERIFY(e.isEditing());
        e.press(u"cmdCancel");
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

    void hintsTellWhatSavingDoes_data() { cases::add(); }
    void hintsTellWhatSavingDoes()
    {
        const auto [field, text, hint] = cases::row<3>();
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

    void valueThatCannotBeStoredEndsTheProgram_data() { cases::add(); }
    void valueThatCannotBeStoredEndsTheProgram()
    {
        const auto [field, text] = cases::row<2>();
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
