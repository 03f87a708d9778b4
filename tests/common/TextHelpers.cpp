// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/TextHelpers.h"
#include "common/CatalogueSort.h"
#include "support/Cases.h"

using namespace obelmark;
using namespace Qt::StringLiterals;

class TextHelpersTest : public QObject
{
    Q_OBJECT
private slots:
    void catalogueSortKey_data() { cases::add(); }
    void catalogueSortKey()
    {
        const auto [name, number, key] = cases::row<3>();
        QCOMPARE(MakeCatSort(number), key.rightJustified(20));
    }

    void fields()
    {
        QCOMPARE(CountFields(QString(), u';'), 0);
        QCOMPARE(CountFields(u"whole"_s, u';'), 1);
        QCOMPARE(CountFields(u"a;b;;"_s, u';'), 4);
        QCOMPARE(GetField(u"a;b;;d"_s, u';', 1), u"a"_s);
        QCOMPARE(GetField(u"a;b;;d"_s, u';', 3), QString());
        QCOMPARE(GetField(u"a;b;;d"_s, u';', 4), u"d"_s);
        QCOMPARE(GetField(u"a;b;;d"_s, u';', 5), QString());
        QCOMPARE(GetField(u"whole"_s, u';', 1), u"whole"_s);
        QCOMPARE(GetField(u"whole"_s, u';', 2), QString());
        QCOMPARE(GetField(u"whole"_s, u';', 0), QString());
    }

    void namesInAnyCase()
    {
        QTemporaryDir dir;
        const QString folder = dir.path() + u'/';
        QCOMPARE(pathInAnyCase(folder, u"coin.mdb"_s), folder + u"coin.mdb"_s);
        QVERIFY(QFile(folder + u"COIN.MDB"_s).open(QIODevice::WriteOnly));
        QCOMPARE(pathInAnyCase(folder, u"coin.mdb"_s), folder + u"COIN.MDB"_s);
        QVERIFY(QFile(folder + u"coin.mdb"_s).open(QIODevice::WriteOnly));
        QCOMPARE(pathInAnyCase(folder, u"coin.mdb"_s), folder + u"coin.mdb"_s);
    }
};

QTEST_GUILESS_MAIN(TextHelpersTest)
#include "TextHelpers.moc"
