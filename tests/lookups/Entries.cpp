// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Showing, changing, adding and finding entries; sellers, who have fields of all kinds.
#include "lookups/LookupFixture.h"
#include "support/Cases.h"
#include <sqlite3.h>

using namespace obelmark;

namespace {

constexpr int categories = 1;
constexpr int sellers = 6;

const QString threeSellers =
    u"insert into boughtfrom (bouid, bouDesc, BouPhone, BouFav, bounotes) values "
    "(1, 'Carol', '555', 1, 'a' || char(10) || 'b'), (2, 'bob', null, null, null), (3, 'Alice', '', 0, '')"_s;

QStringList storedSellers(const EditorFixture &e)
{
    return e.collection.query(
        u"select bouid, bouDesc, BouPhone, BouFav, hex(bounotes) from boughtfrom order by bouid"_s);
}

} // namespace

class EntriesTest : public QObject
{
    Q_OBJECT
private slots:
    // What each field stores, the random walk knows.
    void buttonsOfAChange()
    {
        EditorFixture e(threeSellers);
        e.start();
        const MaintWindow w(e, sellers);
        w.typeInto(u"txtBouNotes", u"x"_s);
        gui::press(Qt::Key_Return);
        gui::type(u"y"_s);
        QCOMPARE(w.buttons(), editingButtons);
        QCOMPARE(w.button(u"cmdUpdate").geometry(), w.button(u"cmdFind").geometry());
        QCOMPARE(w.button(u"cmdCancel").geometry(), w.button(u"cmdDelete").geometry());
        gui::press(Qt::Key_Escape);
        w.press(u"cmdUpdate");
        QCOMPARE(w.buttons(), browsingButtons);
        QCOMPARE(w.defaultButton(), u"cmdOk"_s);
        e.close();
        QCOMPARE(storedSellers(e).last(), u"3|Alice||0|780D0A79"_s);
    }

    // The changed entry is shown in its new place; what was not touched is stored as it was, a single line
    // feed in the notes and a description longer than the limit too.
    void untouchedFieldsAreKept()
    {
        const QString longText(80, u'x');
        EditorFixture e(threeSellers +
                        u"; update boughtfrom set bouDesc = '%1' where bouid = 1"_s.arg(longText));
        e.start();
        const MaintWindow w(e, sellers);
        w.press(u"cmdLast");
        QCOMPARE(w.shown(), longText);
        w.typeInto(u"txtBouPhone", u"556"_s);
        w.press(u"cmdUpdate");
        w.press(u"cmdFirst");
        w.typeInto(u"txtDesc", QString(60, u'y'));
        w.press(u"cmdUpdate");
        QCOMPARE(w.shown(), QString(50, u'y'));
        w.press(u"cmdPrevious");
        QCOMPARE(w.shown(), longText);
        e.close();
        QCOMPARE(storedSellers(e), QStringList({u"1|%1|556|1|610A62"_s.arg(longText), u"2|bob|NULL|NULL|"_s,
                                                u"3|%1||0|"_s.arg(QString(50, u'y'))}));
    }

    void addingASeries()
    {
        EditorFixture e(threeSellers);
        e.start();
        const MaintWindow w(e, sellers);
        gui::press(Qt::Key_A, Qt::AltModifier); // acts before the next key comes
        QCOMPARE(w.buttons(), addingButtons);
        QCOMPARE(w.defaultButton(), u"cmdAddNew"_s);
        QVERIFY(w.edit(u"txtDesc").hasFocus());
        QCOMPARE(w.shown(), QString());
        gui::type(u"Dora"_s);
        QVERIFY(gui::click(w.the<QCheckBox>(u"chkBouFav")));
        QCOMPARE(w.buttons(), addingButtons);
        gui::press(Qt::Key_Return);
        QCOMPARE(w.buttons(), addingButtons);
        QCOMPARE(w.shown(), QString());
        QVERIFY(!w.the<QCheckBox>(u"chkBouFav").isChecked());
        w.typeInto(u"txtDesc", u"Al"_s);
        w.press(u"cmdUpdate");
        QCOMPARE(w.defaultButton(), u"cmdAddNew"_s);
        w.edit(u"txtDesc").setFocus();
        gui::press(Qt::Key_Enter);
        QCOMPARE(w.buttons(), addingButtons);
        gui::type(u"Dropped"_s);
        w.button(u"cmdCancel").setFocus();
        gui::press(Qt::Key_Return);
        QCOMPARE(w.shown(), u"Dora"_s);
        QCOMPARE(w.defaultButton(), u"cmdOk"_s);
        QCOMPARE(e.desktop.problems(), QStringList());
        // On another button Enter is for that, from a field it is for the default button.
        w.button(u"cmdFirst").setFocus();
        gui::press(Qt::Key_Return);
        QCOMPARE(w.shown(), u"Al"_s);
        w.edit(u"txtDesc").setFocus();
        gui::press(Qt::Key_Return);
        QVERIFY(gui::waitUntil([&] { return !w.window; }, "window closed by Ok"));
        e.close();
        QCOMPARE(storedSellers(e).mid(3), QStringList({u"4|Dora||1|"_s, u"5|Al||0|"_s}));
    }

    void findingSpecialText_data() { cases::add(); }
    void findingSpecialText()
    {
        const auto [name, text, found] = cases::row<3>();
        const auto answer = text.isNull() ? std::nullopt : std::optional(text);
        EditorFixture e(u"delete from category; insert into category (catdesc) values "
                        "('100% silver'), ('O''Brien'), ('[unlisted'), ('\"Q\" type'), ('Zeta'), ('Zz')"_s);
        e.start();
        const MaintWindow w(e, categories);
        w.press(u"cmdLast");
        e.desktop.answerText(u"Enter the Coin Category description to find:"_s, u"Find Code"_s, answer);
        if (found.isEmpty())
            e.desktop.expectMessage(u"That record was not found."_s, u"No Records Match"_s);
        w.press(u"cmdFind");
        QCOMPARE(w.shown(), found.isEmpty() ? u"Zz"_s : found);
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    // Each list looks at its own column of the coins.
    void entryInUse()
    {
        const QList<QStringList> lists{{u"category"_s, u"category"_s, u"Category"_s},
                                       {u"condition"_s, u"Coin condition"_s, u"Condition"_s},
                                       {u"country"_s, u"country"_s, u"Country"_s},
                                       {u"format"_s, u"format"_s, u"Format"_s},
                                       {u"mint"_s, u"mint"_s, u"Mint"_s},
                                       {u"boughtfrom"_s, u"seller"_s, u"Seller (Bought From)"_s},
                                       {u"type"_s, u"type"_s, u"Type"_s}};
        for (int mode = 1; mode <= int(lists.size()); ++mode) {
            const QStringList &list = lists[mode - 1];
            EditorFixture e(
                u"delete from %1; insert into %1 (%2id, %2desc) values (901, 'x');"
                "insert into Coin (descr, %2id) values ('Penny', 901)"_s.arg(list[0], list[0].first(3)));
            e.start();
            const MaintWindow w(e, mode);
            e.desktop.answerYesNo(u"Are you sure that you want to delete this "_s + list[1] + u'?',
                                  u"Delete "_s + list[2], Answer::Yes);
            w.press(u"cmdDelete");
            QCOMPARE(w.shown(), u"x"_s);
            QVERIFY(e.desktop.calls().last().text.endsWith(u"is in use in a Coin record"));
        }
    }

    void lockedRowIsTriedAgain()
    {
        EditorFixture e(threeSellers);
        e.start();
        const MaintWindow w(e, sellers);
        e.desktop.answerYesNo(u"Are you sure that you want to delete this seller?"_s,
                              u"Delete Seller (Bought From)"_s, Answer::Yes);
        e.desktop.answerYesNo(u"Could not update locked record.  Do you wish to try again?"_s,
                              u"Locked Record"_s, Answer::Yes);
        int locked = 150;
        e.shared->CoinDatabase->setFaultHook(
            [&](FaultPoint point) { return point == FaultPoint::Delete && locked-- > 0 ? SQLITE_BUSY : 0; });
        w.press(u"cmdDelete");
        QCOMPARE(w.shown(), u"bob"_s);
        QCOMPARE(e.desktop.problems(), QStringList());
    }
};

QTEST_MAIN(EntriesTest)
#include "Entries.moc"
