#include "pictures/PictureFiles.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class PictureFilesTest : public QObject
{
    Q_OBJECT
private slots:
    void coinsPicture()
    {
        QTemporaryDir dir;
        const QString folder = dir.path() + u'/';
        QDir(folder).mkdir(u"Images"_s);
        for (const auto *name : {u"00000012.jpg", u"00000007.BMP", u"00000120", u"000000123.jpg"})
            QVERIFY(QFile(u"%1Images/%2"_s.arg(folder, QString::fromUtf16(name))).open(QIODevice::WriteOnly));
        QCOMPARE(findPictureFile(folder, 12), folder + u"Images/00000012.jpg"_s);
        QCOMPARE(findPictureFile(folder, 7), folder + u"Images/00000007.BMP"_s);
        QCOMPARE(findPictureFile(folder, 1), QString());
        QCOMPARE(findPictureFile(folder, 120), QString()); // no extension, no picture
    }
};

QTEST_GUILESS_MAIN(PictureFilesTest)
#include "PictureFiles.moc"
