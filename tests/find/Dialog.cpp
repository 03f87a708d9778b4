// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/EditorFixture.h"
#include "store/CoinFile.h"
#include <sqlite3.h>

using namespace obelmark;

namespace {

/// The main window on the third of four coins, "Delta", and the Find dialog that its button opens.
struct Finder : EditorFixture
{
    explicit Finder(const QString &catalogueSql = {})
        : EditorFixture(u"insert into Coin (descr, Year, forsale, couid) values ('Alpha', 1900, 1, 2),"
                        "('Beta', 1901, 0, 3), ('Delta', 1902, 1, 3), ('Gamma', 1903, 0, 2)"_s)
    {
        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), u"rptspec.mdb"_s));
        collection.exec(u"attach 'rptspec.mdb' as catalogue; "_s + catalogueSql);
        start();
        press(u"cmdNext");
        press(u"cmdNext");
    }
    ~Finder() { QCOMPARE(desktop.problems(), QStringList()); }

    /// Presses "Find" and does that in the dialog, which is closed afterwards when it is still open.
    void inDialog(const std::function<void()> &act)
    {
        QVERIFY(gui::withDialog([&] { button(u"cmdFind").click(); },
                                [&](QWidget &opened) {
                                    dialog = &opened;
                                    act();
                                }));
    }
    template<class Widget>
    Widget &in(QStringView name) const
    {
        return gui::find<Widget>(*dialog, name.toString());
    }
    void choose(QStringView list, const QString &text) const
    {
        auto &widget = in<QListWidget>(list);
        const auto items = widget.findItems(text, Qt::MatchExactly);
        QVERIFY2(items.size() == 1, qPrintable(text));
        widget.scrollToItem(items.first());
        QTest::mouseClick(widget.viewport(), Qt::LeftButton, {},
                          widget.visualItemRect(items.first()).center());
    }
    void typeValue(const QString &text) const
    {
        QVERIFY(gui::focusByMouse(in<QLineEdit>(u"txtToFind")));
        gui::press(Qt::Key_A, Qt::ControlModifier);
        gui::type(text);
    }

    void pressFind() const { QVERIFY(gui::click(in<QPushButton>(u"cmdFind"))); }
    QString currentCoin() const { return shared->CoinRecordset->value(u"descr").toText(); }

    QWidget *dialog = nullptr;
};

} // namespace

class DialogTest : public QObject
{
    Q_OBJECT
private slots:
    void controlsOfEachKind()
    {
        Finder f;
        f.inDialog([&] {
            const auto shownFor = [&](const QString &field) {
                f.choose(u"lstField", field);
                QString shown = f.in<QLabel>(u"lblOperator").text();
                for (const auto name :
                     {u"lstText", u"lstNum", u"lstBool", u"lstSel", u"txtToFind", u"lblToFind"})
                    shown += f.in<QWidget>(name).isVisible() ? u' ' + QString::fromUtf16(name) : QString();
                return shown;
            };
            QCOMPARE(shownFor(u"Description"_s), u"Operator lstText txtToFind lblToFind"_s);
            QCOMPARE(shownFor(u"For Sale"_s), u"Select Value lstBool"_s);
            QCOMPARE(shownFor(u"Issue Date"_s), u"Operator lstNum txtToFind lblToFind"_s);
            QCOMPARE(shownFor(u"Country"_s), u"Select Value lstSel"_s);
            gui::press(Qt::Key_F1);
            QCOMPARE(f.desktop.calls().last().topic, 15);
        });
    }

    void entriesOfALookupTable()
    {
        Finder f;
        f.desktop.expectMessage(u"You must select the value to find from the second list."_s,
                                u"No Value Selected"_s);
        f.inDialog([&] {
            const auto &list = f.in<QListWidget>(u"lstSel");
            f.choose(u"lstField", u"Country"_s);
            gui::focusByTab(f.in<QWidget>(u"lstSel")); // goes to the first entry and chooses none
            f.pressFind();
            QVERIFY(f.dialog->isVisible());
            const auto countries = f.shared->CoinDatabase->openDynaset(u"select * from country"_s);
            countries->findFirst(u"couid = 3"_s);
            countries->edit();
            countries->setValue(u"coudesc", u" Aa"_s);
            countries->update();
            f.choose(u"lstField", u"Country"_s); // again: lists them anew
            QCOMPARE(list.item(0)->text(), u" Aa"_s);
            f.choose(u"lstSel", u" Aa"_s);
            f.pressFind();
        });
        QCOMPARE(f.shownCoin(), u"Beta"_s);
    }

    void catalogueThatDoesNotFit()
    {
        Finder f(u"update RptSpec set fieldname = 'x; ' || specid where specid in (1, 25)"_s);
        QVERIFY(QFile::rename(u"rptspec.mdb"_s, u"elsewhere"_s));
        f.press(u"cmdFind");
        QVERIFY(f.desktop.calls().last().text.contains(u"rptspec.mdb' cannot be read"));
        QVERIFY(QFile::rename(u"elsewhere"_s, u"rptspec.mdb"_s));
        f.inDialog([&] {
            f.choose(u"lstField", u"Description"_s);
            f.pressFind();
            QVERIFY(f.desktop.calls().last().text.startsWith(u"The field 'Description' cannot be searched:"));
            QVERIFY(f.dialog->isVisible());
            f.choose(u"lstField", u"Country"_s);
            QVERIFY(f.desktop.calls().last().text.startsWith(u"The field 'Country' cannot be searched:"));
        });
        f.desktop.reset();
        QCOMPARE(f.shownCoin(), u"Delta"_s);
    }

    /// The search meets damage: the database is repaired, and nothing has been searched yet.
    void damage()
    {
        Finder f;
        f.inDialog([&] {
            f.choose(u"lstField", u"Description"_s);
            f.typeValue(u"Gamma"_s);
            bool damaged = true;
            f.shared->CoinDatabase->setFaultHook([&](FaultPoint point) {
                const bool now = point == FaultPoint::Query && std::exchange(damaged, false);
                return now ? SQLITE_CORRUPT : SQLITE_OK;
            });
            f.pressFind();
            QVERIFY(f.desktop.calls().last().text.contains(u"has been repaired"));
            f.desktop.reset();
            QVERIFY(f.dialog->isVisible() && f.shared->FindCancelled);
            f.pressFind();
        });
        QCOMPARE(f.shownCoin(), u"Gamma"_s);
    }
};

QTEST_MAIN(DialogTest)
#include "Dialog.moc"
