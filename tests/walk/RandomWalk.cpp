// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/Walk.h"
#include <QtTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

const QString entries =
    u"insert into country (couid, coudesc) values (1000, 'Eagle Land'), (1001, 'éire'), (1002, 'Zürich');"
    "insert into condition (conid, Condesc) values (1000, 'Fine'), (1001, 'fine'), (1002, 'Poor');"
    "insert into boughtfrom (bouDesc, BouPhone) values ('Olga', '1'), ('Ann', null);"
    "insert into mint (mindesc) values ('Mint');"_s;

const QString coins =
    u"insert into Coin (descr, catnum, Year, quantity, pricepaid, totalpaid, couid, conid, notes, sold)"
    " values ('Beta', 'KM 100-2', 1852, 5, 25055, 125275, 1000, 1000, 'a' || char(13, 10) || 'b', 0),"
    " ('alpha', 'KM 9', 1999, null, null, null, null, 4711, null, null), (null, '12', null, 3, 5, 15, null,"
    " null, '', 1), ('Éa', '', -44, 12, -10000, -120000, null, null, 'x', 0);"_s;

} // namespace

/// Thousands of random operations in the windows of the program, compared after each with a plain model: what
/// the windows show and tell, and every column of every row in the file.
///
/// WALK_STEPS sets the number of operations for each seed, WALK_SEED another seed.
class RandomWalk : public QObject
{
    Q_OBJECT
private slots:
    void walk_data()
    {
        QTest::addColumn<uint>("seed");
        QTest::addColumn<QString>("sql");
        if (const uint seed = qEnvironmentVariable("WALK_SEED").toUInt()) {
            QTest::newRow("chosen") << seed << entries + coins;
            return;
        }
        QTest::newRow("from nothing") << 1u << QString();
        QTest::newRow("some coins") << 2u << entries + coins;
        QTest::newRow("more coins") << 3u << entries + coins.repeated(6);
    }
    void walk()
    {
        QFETCH(uint, seed);
        QFETCH(QString, sql);
        constexpr int latest = 25;
        const int steps = qEnvironmentVariable("WALK_STEPS", u"500"_s).toInt();
        walk::Walk walk(seed, sql);
        for (int i = 0; i < steps; ++i) {
            const QString difference = walk.step();
            if (!difference.isEmpty() || QTest::currentTestFailed())
                QFAIL(qPrintable(u"Seed %1, operation %2:\n%3\n\n%4"_s.arg(
                    QString::number(seed), QString::number(i),
                    QStringList(walk.done().last(std::min<qsizetype>(latest, walk.done().size())))
                        .join(u'\n'),
                    difference)));
        }
    }
};

QTEST_MAIN(RandomWalk)
#include "RandomWalk.moc"
