#include "support/ScriptedDesktop.h"

#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class ScriptedDesktopTest : public QObject
{
    Q_OBJECT

private slots:
    void followsTheScript()
    {
        ScriptedDesktop scripted;
        scripted.expectMessage(u"Saved."_s);
        scripted.answerYesNo(u"Sure?"_s, u"Delete Coin"_s, Desktop::Answer::Yes);
        scripted.answerText(u"How many?"_s, u"Sold"_s, QString());
        scripted.answerText(u"How many?"_s, u"Sold"_s, std::nullopt);

        Desktop &desktop = scripted;
        desktop.beep();
        desktop.showMessage(u"Saved."_s);
        QCOMPARE(desktop.askYesNo(u"Sure?"_s, u"Delete Coin"_s), Desktop::Answer::Yes);
        QCOMPARE(desktop.askText(u"How many?"_s, u"Sold"_s), std::optional(QString()));
        QCOMPARE(desktop.askText(u"How many?"_s, u"Sold"_s), std::optional<QString>());
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, desktop.endProgram());

        QCOMPARE(scripted.problems(), QStringList());
        QCOMPARE(scripted.beeps(), 1);
        QCOMPARE(scripted.calls().size(), 6);
        QCOMPARE(scripted.calls().at(1).title, u"Obelmark"_s);
    }

    /// A script with one message, and a program that does something else.
    void noticesEveryDifference_data()
    {
        using Act = std::function<void(Desktop &)>;
        QTest::addColumn<Act>("act");
        QTest::newRow("nothing comes") << Act([](Desktop &) {});
        QTest::newRow("text") << Act([](Desktop &desktop) { desktop.showMessage(u"saved."_s); });
        QTest::newRow("title") << Act([](Desktop &desktop) { desktop.showMessage(u"Saved."_s, u"Other"_s); });
        QTest::newRow("icon") << Act([](Desktop &desktop) {
            desktop.showMessage(u"Saved."_s, u"Obelmark"_s, Desktop::Icon::Critical);
        });
        QTest::newRow("twice") << Act([](Desktop &desktop) {
            desktop.showMessage(u"Saved."_s);
            desktop.showMessage(u"Saved."_s);
        });
        QTest::newRow("question") << Act([](Desktop &desktop) {
            QCOMPARE(desktop.askYesNo(u"Saved."_s, u"Obelmark"_s), Desktop::Answer::No);
        });
        QTest::newRow("input box") << Act([](Desktop &desktop) {
            QCOMPARE(desktop.askText(u"Saved."_s, u"Obelmark"_s), std::optional<QString>());
        });
    }

    void noticesEveryDifference()
    {
        QFETCH(std::function<void(Desktop &)>, act);
        ScriptedDesktop scripted;
        scripted.expectMessage(u"Saved."_s);
        act(scripted);
        QVERIFY(!scripted.problems().isEmpty());
    }
};

QTEST_GUILESS_MAIN(ScriptedDesktopTest)
#include "ScriptedDesktop.moc"
