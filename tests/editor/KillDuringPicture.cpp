#include "support/TestCollection.h"
#include <QImage>
#include <QMap>
#include <QProcess>
#include <QSet>
#include <QTest>
#include <random>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// A process that saves coins with new pictures is killed again and again. The coin's description names the
/// picture that was saved with it: what was reported is there, and a coin never has another one's picture.
class KillDuringPicture : public QObject
{
    Q_OBJECT
private slots:
    void pictureStaysWithItsCoin()
    {
        const TestCollection collection;
        collection.exec(u"insert into Coin (coinid, descr, quantity) values (1, '0', 1)"_s);
        std::mt19937 chance(11);
        QMap<int, int> shown; // of each coin, the width of its picture
        QSet<int> cut;
        int newest = 0;
        for (int round = 0; round < 25; ++round) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process.start(QStringLiteral(PICTURE_LOOP), {QString::number(newest)});
            const int wanted = std::uniform_int_distribution(1, 6)(chance);
            QByteArray output;
            while (output.count("saved") < wanted && process.waitForReadyRead())
                output += process.readAllStandardOutput();
            process.kill();
            process.waitForFinished();
            output += process.readAllStandardOutput();
            const int last = newest + int(output.count("saved"));

            QCOMPARE(collection.query(u"pragma integrity_check"_s), QStringList(u"ok"_s));
            // What is cut off has a name that the next start knows.
            QStringList left = QDir(collection.folder() + u"images"_s)
                                   .entryList({u".obelmark-*"_s}, QDir::Files | QDir::Hidden);
            for (const auto *name : {u".obelmark-bytes.tmp", u".obelmark-jpeg.tmp", u".obelmark-picture.tmp"})
                left.removeAll(QString::fromUtf16(name));
            QCOMPARE(left, QStringList());
            newest = collection.query(u"select max(cast(descr as integer)) from Coin"_s).first().toInt();
            QVERIFY2(newest == last || newest == last + 1, output.constData());
            QSet<int> descriptions;
            for (const QString &descr : collection.query(u"select descr from Coin"_s))
                descriptions.insert(descr.toInt());
            for (const QString &coin : collection.query(u"select coinid, descr from Coin"_s)) {
                const int key = coin.section(u'|', 0, 0).toInt(), saved = coin.section(u'|', 1).toInt();
                const QString path =
                    u"%1images/%2.jpg"_s.arg(collection.folder()).arg(key, 8, 10, QChar(u'0'));
                const int width = QImage(path).width();
                // The save that was cut off may lack its picture; its coin has the one before, or none. The
                // one before is the last that was reported when no other coin was saved with it.
                if (saved > last && width != saved) {
                    cut.insert(saved);
                    if (width == last && !descriptions.contains(last))
                        shown[key] = last;
                }
                const int expected = cut.contains(saved) ? shown.value(key) : saved;
                QVERIFY2(width == expected, qPrintable(coin + u": "_s + QString::number(width)));
                shown[key] = width;
            }
        }
        QVERIFY2(newest > 50, qPrintable(QString::number(newest)));
    }
};

QTEST_GUILESS_MAIN(KillDuringPicture)
#include "KillDuringPicture.moc"
