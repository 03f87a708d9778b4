// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/LostFile.h"
#include "common/SharedState.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"

using namespace obelmark;
using Answer = Desktop::Answer;

namespace {

const QString title = u"Collection File"_s;
const QString missing = u"'%1', the file of the collection, is not there any more: it was deleted or given "
                        "another name while this program was using it."_s;
const QString replaced = u"Another program has put another file in the place of '%1', the file of the "
                         "collection, while this program was using it."_s;
const QString question =
    u"\n\nNothing can be saved in it any more.  All that was saved before is still known to this program, "
    "until it ends.\n\nDo you wish to save the collection in a new file, '%1'?"_s;
const QString goesOn =
    u"The collection has been saved as '%1', and the program goes on with that file until it ends.  When it "
    "is started again, it opens the file '%2', as always.\n\nIf you were typing a record, it is still on the "
    "screen and not saved yet."_s;
const QString overwritten =
    u"Another program has written into '%1', the file of the collection, while this program was using it.\n\n"
    "Wait until the other program has finished, and press OK.  The file is then opened anew, and what stands "
    "in it now is shown.  A record that you are typing stays on the screen, as a new one."_s;
const QString followed =
    u"The folder of the collection has another name now: '%1'.  The program goes on in that folder."_s;

QString coinsIn(const QString &path)
{
    const auto database = openCoinDatabase(path);
    const auto coins = openCoins(*database);
    QStringList names;
    for (; !coins->eof(); coins->moveNext())
        names << coins->value(u"descr").toText();
    return names.join(u' ');
}

void setContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class LostFile : public QObject
{
    Q_OBJECT
private slots:
    void nothingIsSavedIntoNowhere_data() { cases::add(); }
    void nothingIsSavedIntoNowhere()
    {
        const auto [does, saves, in, expected] = cases::row<4>();
        const Answer answer = saves == u"yes" ? Answer::Yes : Answer::No;
        TestCollection collection;
        QVERIFY(QDir().mkdir(u"c"_s) && QDir::setCurrent(u"c"_s));
        const QString folder = QDir::currentPath();
        const QString path = folder + u"/coin.mdb"_s;
        QVERIFY(QFile::copy(collection.databasePath(), path));
        collection.exec(u"insert into Coin (descr, notes) values ('other', hex(zeroblob(9999)))"_s);
        QVERIFY(QFile::copy(collection.databasePath(), u"other.mdb"_s));
        setContent(u"coin-saved.mdb"_s, "someone's");

        ScriptedDesktop desktop;
        SharedState shared{desktop, RegionalSettings(QLocale(u"en_US"_s))};
        shared.AppFolder = folder + u'/';
        shared.DatabasePath = path;
        shared.CoinDatabase = openCoinDatabase(path);
        shared.CoinRecordset = openCoins(*shared.CoinDatabase);
        const auto add = [&](const QString &name) {
            auto &coins = coinRecordset(shared);
            coins.addNew();
            coins.setValue(u"descr", name);
            return writeWithRetry(shared, [&] { coins.update(); });
        };
        QVERIFY(add(u"first"_s));
        QCOMPARE(std::system(qPrintable(does.arg(path, folder))), 0);
        const bool isReplaced = QFile::exists(path) && does.startsWith(u"mv"_s);
        if (isReplaced) // what the file there now needs must not be removed
            setContent(path + u"-journal"_s, QByteArray(100, '\0') + "its own");

        const QString saved = folder + u"/coin-saved-2.mdb"_s;
        if (does.contains(u"cat"_s)) {
            desktop.expectMessage(overwritten.arg(path), title);
        } else if (does.contains(u"%2"_s)) {
            desktop.expectMessage(followed.arg(folder + u".x"_s), title);
        } else {
            desktop.answerYesNo((isReplaced ? replaced : missing).arg(path) + question.arg(saved), title,
                                answer);
            if (answer == Answer::Yes)
                desktop.expectMessage(goesOn.arg(saved, path), title);
        }
        QVERIFY_THROWS_EXCEPTION(DatabaseRepaired, add(u"second"_s));
        QCOMPARE(desktop.problems().join(u"\n"_s), QString());
        QCOMPARE(shared.DatabaseRepairs, answer == Answer::Yes ? 1 : 0);
        if (answer == Answer::Yes)
            QVERIFY(add(u"second"_s));
        shared.CoinRecordset.reset();
        shared.CoinDatabase.reset();
        if (isReplaced)
            QVERIFY(contentOf(path + u"-journal"_s).endsWith("its own"));
        QCOMPARE(coinsIn(in), expected);
        QCOMPARE(contentOf(u"coin-saved.mdb"_s), "someone's");
    }
};

QTEST_GUILESS_MAIN(LostFile)
#include "LostFile.moc"
