// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/CatalogueSort.h"
#include "engine/language/EngineError.h"
#include "engine/language/TextFold.h"
#include "store/CoinFile.h"
#include <QtTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

static const QStringList lookups{u"category catid catdesc"_s,  u"condition conid Condesc"_s,
                                 u"country couid coudesc"_s,   u"format forid fordesc"_s,
                                 u"mint minid mindesc"_s,      u"type typid typdesc"_s,
                                 u"boughtfrom bouid bouDesc"_s};
static const QStringList totals{u"pricepaid totalpaid"_s, u"catvalue totalval"_s, u"priceask totalsales"_s};

/// Copies of the databases that the build makes.
class DeliveredData : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/coin.mdb"), m_empty));
        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/sample.mdb"), m_sample));
    }
    void emptyCollection()
    {
        const auto database = openCoinDatabase(m_empty);
        QVERIFY_THROWS_EXCEPTION(EngineError, openCoinDatabase(m_empty)); // in use
        QVERIFY(openCoins(*database)->isEmpty());
        for (const QString &lookup : lookups) {
            const QString table = lookup.section(u' ', 0, 0);
            const auto rows = database->openSnapshot(u"select * from "_s + table);
            QCOMPARE(rows->isEmpty(), table == u"boughtfrom"); // sellers are the user's own
            QSet<QString> entries;
            for (; !rows->eof(); rows->moveNext())
                entries << foldText(rows->value(lookup.section(u' ', 2)).toText());
            QCOMPARE(entries.size(), rows->recordCount()); // the same entry twice would divide its coins
        }
    }

    void sampleKeepsTheRules()
    {
        const auto database = openCoinDatabase(m_sample);
        const auto coins = database->openSnapshot(u"select * from Coin"_s);
        QVERIFY(coins->recordCount() >= 150);
        for (; !coins->eof(); coins->moveNext()) {
            const auto value = [&](QStringView field) { return coins->value(field); };
            const QString name = value(u"descr").toText();
            if (value(u"forsale").toBool())
                QVERIFY2(!value(u"sold").toBool() && !value(u"wantlist").toBool(), qPrintable(name));
            const Money quantity = Money::fromWhole(value(u"quantity").toInt());
            for (const QString &total : totals) {
                const Value price = value(total.section(u' ', 0, 0));
                const Value expected = price.isNull() ? Value() : price.as<Money>()->times(quantity);
                QVERIFY2(value(total.section(u' ', 1)) == expected, qPrintable(name + total));
            }
        }
        // The editor takes no more characters than these, separates lines by CR LF and writes no null texts.
        const auto bad = database->openSnapshot(
            u"select coinid from Coin where length(descr) > 80 or length(catnum) > 30 or length(SerNum) > 80 "
            "or length(Metal) > 80 or length(Errors) > 50 or length(misc1) > 50 or length(misc2) > 50 "
            "or instr(replace(notes, char(13, 10), ''), char(10)) > 0 "
            "or descr || catnum || SerNum || Metal || Errors || notes || misc1 || misc2 is null"_s);
        QVERIFY(bad->isEmpty());
        for (const QString &lookup : lookups) {
            const QString dangling = u"select coinid from Coin left join %1 on Coin.%2 = %1.%2 "
                                     "where Coin.%2 is not null and %1.%2 is null"_s;
            const QStringList names = lookup.split(u' ');
            QVERIFY2(database->openSnapshot(dangling.arg(names[0], names[1]))->isEmpty(), qPrintable(lookup));
        }
    }

private:
    QTemporaryDir m_folder;
    const QString m_empty = m_folder.filePath(u"coin.mdb"_s);
    const QString m_sample = m_folder.filePath(u"sample.mdb"_s);
};

QTEST_GUILESS_MAIN(DeliveredData)
#include "DeliveredData.moc"
