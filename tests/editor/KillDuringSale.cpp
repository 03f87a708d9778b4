#include "support/TestCollection.h"
#include <QProcess>
#include <QTest>
#include <random>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// A process that sells coins of a lot is killed again and again: every sale it had reported is in the file,
/// and no sale is there by half, with a coin in the lot and among the sold ones or in neither.
class KillDuringSale : public QObject
{
    Q_OBJECT
private slots:
    void salesAreWhole()
    {
        constexpr int lot = 10000;
        const TestCollection collection;
        collection.exec(
            u"insert into Coin (coinid, descr, quantity, pricepaid, totalpaid) values (1, 'A lot', %1, "
            "25000, 25000 * %1)"_s.arg(lot));
        std::mt19937 chance(7);
        int sold = 0;
        for (int round = 0; round < 25; ++round) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process.start(QStringLiteral(SALE_LOOP), {});
            const int wanted = std::uniform_int_distribution(1, 12)(chance);
            QByteArray output;
            while (output.count("sold") < wanted && process.waitForReadyRead())
                output += process.readAllStandardOutput();
            process.kill();
            process.waitForFinished();
            output += process.readAllStandardOutput();
            const int reported = sold + int(output.count("sold"));

            QCOMPARE(collection.query(u"pragma integrity_check"_s), QStringList(u"ok"_s));
            sold = collection.query(u"select count(*) from Coin where sold"_s).first().toInt();
            QVERIFY2(sold == reported || sold == reported + 1, output.constData());
            QCOMPARE(collection.query(u"select quantity, totalpaid from Coin where coinid = 1"_s),
                     QStringList(u"%1|%2"_s.arg(lot - sold).arg(25000LL * (lot - sold))));
            QCOMPARE(collection.query(
                         u"select count(*) from Coin where coinid > 1 and (quantity <> 1 or not sold or "
                         "totalpaid <> 25000)"_s),
                     QStringList(u"0"_s));
        }
        QVERIFY2(sold > 100, qPrintable(QString::number(sold)));
    }
};

QTEST_GUILESS_MAIN(KillDuringSale)
#include "KillDuringSale.moc"
