#include "pictures/PictureFiles.h"
#include "common/SharedState.h"
#include "support/ScriptedDesktop.h"
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

    void strays()
    {
        QTemporaryDir dir;
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
        shared.AppFolder = dir.path() + u'/';
        QDir(shared.AppFolder).mkdir(u"images"_s);
        const QDir images(shared.AppFolder + u"images"_s);
        for (const auto *name :
             {u"00000012.jpg", u"00000012.bmp", u"unclaimed-00000012.jpg", u"00000001.jpg"})
            QVERIFY(QFile(images.filePath(QString::fromUtf16(name))).open(QIODevice::WriteOnly));
        setAsideStrayPictures(shared, 12);
        QCOMPARE(images.entryList(QDir::Files, QDir::Name),
                 QStringList({u"00000001.jpg"_s, u"unclaimed-00000012.bmp"_s, u"unclaimed-00000012.jpg"_s,
                              u"unclaimed-2-00000012.jpg"_s}));
        QCOMPARE(desktop.problems(), QStringList());
    }
};

QTEST_GUILESS_MAIN(PictureFilesTest)
#include "PictureFiles.moc"
