#include "common/TextHelpers.h"
#include "common/CatalogueSort.h"
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class TextHelpersTest : public QObject
{
    Q_OBJECT
private slots:
    void catalogueSortKey_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("key");
        const auto key = [](const char *digits) { return QString::fromLatin1(digits).rightJustified(20); };
        QTest::newRow("digits among letters") << u"KM 123"_s << key("123");
        QTest::newRow("only the part before the hyphen") << u"123-5"_s << key("123");
        QTest::newRow("nothing before the hyphen") << u"-5"_s << key("");
        QTest::newRow("digits on both sides of letters") << u"Y12a3"_s << key("123");
        QTest::newRow("no digits") << u"KM"_s << key("");
        QTest::newRow("empty") << QString() << key("");
        QTest::newRow("the first 20 of 25") << u"1234567890123456789012345"_s << u"12345678901234567890"_s;
        QTest::newRow("digits of other scripts do not count") << u"K٣٤5"_s << key("5");
        QTest::newRow("another dash is no hyphen") << u"12\u20135"_s << key("125");
    }
    void catalogueSortKey()
    {
        QFETCH(QString, number);
        QFETCH(QString, key);
        QCOMPARE(MakeCatSort(number), key);
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
