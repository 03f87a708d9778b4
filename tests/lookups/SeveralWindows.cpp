// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Windows beside each other: on the same table, beside the main window, across a repair and a lost database.
#include "lookups/LookupFixture.h"
#include "support/Cases.h"
#include <sqlite3.h>

using namespace obelmark;

namespace {

constexpr int mints = 5;
const QString deleteQuestion = u"Are you sure that you want to delete this mint?"_s;
const QString deletedMessage = u"This entry has been deleted in another window."_s;

QString mintsNamed(const QStringList &names)
{
    QString sql = u"delete from mint;"_s;
    for (const QString &name : names)
        sql += u"insert into mint (mindesc) values ('%1');"_s.arg(name);
    return sql;
}

/// Deletes the entry that the window shows.
void deleteShown(EditorFixture &e, const MaintWindow &w)
{
    gui::activate(*w.window);
    e.desktop.answerYesNo(deleteQuestion, u"Delete Mint"_s, Answer::Yes);
    w.press(u"cmdDelete");
}

QStringList storedMints(const EditorFixture &e)
{
    return e.collection.query(u"select mindesc from mint order by mindesc"_s);
}

/// Two windows on the same entry.
struct TwoWindows
{
    TwoWindows(const QStringList &names, int steps) : program(mintsNamed(names))
    {
        program.start();
        one.emplace(program, mints);
        other.emplace(program, mints);
        for (int i = 0; i < steps; ++i) {
            for (const auto *window : {&*one, &*other}) {
                gui::activate(*window->window);
                window->press(u"cmdNext");
            }
        }
    }

    EditorFixture program;
    std::optional<MaintWindow> one;
    std::optional<MaintWindow> other;
};

} // namespace

class SeveralWindowsTest : public QObject
{
    Q_OBJECT
private slots:
    void deletedElsewhere_data() { cases::add(); }
    void deletedElsewhere()
    {
        const auto [count, button, shown, how] = cases::row<4>();
        const int steps = count.toInt();
        TwoWindows two({u"a"_s, u"b"_s, u"c"_s}, steps);
        if (how.contains(u"types"))
            two.other->typeInto(u"txtDesc", u"changed"_s);
        deleteShown(two.program, *two.one);
        gui::activate(*two.other->window);
        if (how.contains(u"told"))
            two.program.desktop.expectMessage(deletedMessage, u"Entry Deleted"_s);
        two.other->press(button);
        QCOMPARE(two.other->shown(), shown);
        QCOMPARE(two.other->buttons(), browsingButtons);
        QCOMPARE(two.program.desktop.problems(), QStringList());
        two.program.close();
        QStringList left{u"a"_s, u"b"_s, u"c"_s};
        left.removeAt(steps);
        QCOMPARE(storedMints(two.program), left);
    }

    void onlyEntryDeletedElsewhere()
    {
        for (const QString &button : {u"cmdNext"_s, u"cmdDelete"_s}) {
            TwoWindows two({u"a"_s}, 0);
            deleteShown(two.program, *two.one);
            gui::activate(*two.other->window);
            QCOMPARE(two.other->shown(), u"a"_s);
            if (button == u"cmdDelete")
                two.program.desktop.expectMessage(deletedMessage, u"Entry Deleted"_s);
            two.other->press(button);
            QVERIFY(two.other->isShowingNothing());
            // The first entry of a table that was empty is shown by itself.
            two.other->press(u"cmdAddNew");
            gui::type(u"new"_s);
            two.other->press(u"cmdUpdate");
            gui::activate(*two.one->window);
            QCOMPARE(two.one->shown(), u"new"_s);
            QVERIFY(two.one->edit(u"txtDesc").isEnabled());
            QCOMPARE(two.program.desktop.problems(), QStringList());
        }
    }

    void changedElsewhere()
    {
        TwoWindows two({u"a"_s, u"b"_s, u"c"_s}, 0);
        two.other->typeInto(u"txtDesc", u"bb"_s);
        two.other->press(u"cmdUpdate");
        QCOMPARE(two.other->shown(), u"bb"_s);
        gui::activate(*two.one->window);
        QCOMPARE(two.one->shown(), u"bb"_s);
        QCOMPARE(two.one->buttons(), browsingButtons);
        two.one->press(u"cmdNext");
        QCOMPARE(two.one->shown(), u"c"_s);
        // An edit is not overwritten by what another window writes.
        two.one->typeInto(u"txtDesc", u"mine"_s);
        gui::activate(*two.other->window);
        two.other->press(u"cmdLast");
        two.other->typeInto(u"txtDesc", u"theirs"_s);
        two.other->press(u"cmdUpdate");
        gui::activate(*two.one->window);
        QCOMPARE(two.one->shown(), u"mine"_s);
        two.one->press(u"cmdUpdate");
        two.program.close();
        QCOMPARE(storedMints(two.program), QStringList({u"b"_s, u"bb"_s, u"mine"_s}));
    }

    void closingOneLeavesTheOther()
    {
        TwoWindows two({u"a"_s, u"b"_s}, 0);
        two.one->press(u"cmdOk");
        QVERIFY(gui::waitUntil([&] { return !two.one->window; }, "window closed by Ok"));
        gui::activate(*two.other->window);
        two.other->press(u"cmdNext");
        QCOMPARE(two.other->shown(), u"b"_s);
    }

    // The damage shows when the row is in the file and is looked for: it is there once, and shown.
    void damageFoundAfterSaving()
    {
        EditorFixture e(mintsNamed({u"a"_s}));
        e.start();
        const MaintWindow w(e, mints);
        const auto saveDamaged = [&](const auto &window, QStringView field, const QString &text) {
            gui::activate(*window.window);
            window.press(u"cmdAddNew");
            window.typeInto(field, text);
            e.shared->CoinDatabase->setFaultHook([isSaved = false](FaultPoint point) mutable {
                isSaved = isSaved || point == FaultPoint::Update;
                return isSaved && point == FaultPoint::Query ? SQLITE_CORRUPT : 0;
            });
            window.press(u"cmdUpdate");
        };
        saveDamaged(w, u"txtDesc", u"b"_s);
        QCOMPARE(w.buttons(), browsingButtons);
        QCOMPARE(w.shown(), u"b"_s);
        saveDamaged(e, u"txtDescr", u"One"_s);
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.shownCoin(), u"One"_s);
        QCOMPARE(e.desktop.calls().size(), 2);
        e.close();
        QCOMPARE(storedMints(e), QStringList({u"a"_s, u"b"_s}));
        QCOMPARE(e.collection.query(u"select descr from Coin"_s), QStringList(u"One"_s));
    }

    // Backup and packing close the database under the window: it may be looked at and closed, but not used.
    void databaseClosedUnderTheWindow()
    {
        EditorFixture e(mintsNamed({u"a"_s}));
        e.start();
        const MaintWindow w(e, mints);
        const MaintWindow closedByFrame(e, mints);
        e.shared->CoinRecordset.reset();
        e.shared->CoinDatabase.reset();
        gui::activate(*w.window);
        closedByFrame.window->close();
        QCOMPARE(e.desktop.problems(), QStringList());
        for (const auto *button : {u"cmdNext", u"cmdDelete"}) {
            e.desktop.expectMessage(
                u"An error has occurred.  You may have forgotten to close a window before packing or backing "
                "up the program's database.  Please rerun the program."_s);
            QVERIFY_THROWS_EXCEPTION(ProgramEnded, w.button(button).click());
            QCOMPARE(e.desktop.problems(), QStringList());
        }
        w.press(u"cmdOk");
        QVERIFY(gui::waitUntil([&] { return !w.window; }, "window closed by Ok"));
    }

    // A window comes upon damage: every window goes on with the repaired file where it was, also the main
    // window, whose next Update must not write into another coin.
    void repairedUnderTheWindows()
    {
        EditorFixture e(mintsNamed({u"a"_s, u"b"_s, u"c"_s}) +
                        u"insert into Coin (descr, quantity) values ('One', 1), ('Two', 1)"_s);
        e.start();
        e.press(u"cmdNext");
        e.typeInto(u"txtMetal", u"silver"_s);
        const MaintWindow browsing(e, mints);
        browsing.press(u"cmdLast");
        const MaintWindow editing(e, mints);
        editing.press(u"cmdNext");
        editing.typeInto(u"txtDesc", u"bb"_s);
        gui::activate(*browsing.window);
        e.shared->CoinDatabase->setFaultHook(
            [](FaultPoint point) { return point == FaultPoint::Query ? SQLITE_CORRUPT : 0; });
        browsing.press(u"cmdPrevious");
        QCOMPARE(e.desktop.calls().size(), 1);
        QVERIFY(e.desktop.calls().first().text.startsWith(u"The database file was damaged"));
        QCOMPARE(browsing.shown(), u"c"_s);
        browsing.press(u"cmdPrevious");
        QCOMPARE(browsing.shown(), u"b"_s);
        gui::activate(*editing.window);
        QCOMPARE(editing.buttons(), editingButtons);
        editing.press(u"cmdUpdate");
        gui::activate(*e.window);
        QVERIFY(e.isEditing());
        e.press(u"cmdUpdate");
        QCOMPARE(e.desktop.calls().size(), 1);
        e.close();
        QCOMPARE(storedMints(e), QStringList({u"a"_s, u"bb"_s, u"c"_s}));
        QCOMPARE(e.collection.query(u"select descr, Metal from Coin order by descr"_s),
                 QStringList({u"One|NULL"_s, u"Two|silver"_s}));
    }
};

QTEST_MAIN(SeveralWindowsTest)
#include "SeveralWindows.moc"
