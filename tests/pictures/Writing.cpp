// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/SharedState.h"
#include "pictures/NewPictureFile.h"
#include "pictures/PictureFiles.h"
#include "pictures/cDIBSection.h"
#include "pictures/mIntelJPEGLibrary.h"
#include "runtime/NumberedError.h"
#include "support/ScriptedDesktop.h"
#include <QtGui>
#include <QtTest>

using namespace obelmark;

class WritingTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"picture.jpg"_s);

private slots:
    void section()
    {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(qRgb(1, 2, 3));
        image.setPixel(0, 1, qRgb(4, 5, 6));
        cDIBSection section;
        QVERIFY(section.CreateFromPicture(image));
        QCOMPARE(section.Width(), 3);
        QCOMPARE(section.Height(), 2);
        QCOMPARE(section.BytesPerScanLine(), 12);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(section.DIBSectionBitsPtr()), 24).toHex(),
                 "060504030201030201000000"
                 "030201030201030201000000");
        QVERIFY(!section.CreateFromPicture(QImage()));
    }

    // Taller than the bands in which it is copied, with an odd width; on top red, at the bottom blue.
    void jpeg()
    {
        QImage image(101, 600, QImage::Format_RGB32);
        for (int y = 0; y < 600; ++y) {
            for (int x = 0; x < 101; ++x)
                image.setPixel(x, y, qRgb(255 - y * 255 / 599, 0, y * 255 / 599));
        }
        writePicture(image, m_path);
        const QImage read(m_path);
        QCOMPARE(read.size(), image.size());
        for (int y = 5; y < 600; y += 37)
            QVERIFY2(qAbs(qRed(read.pixel(50, y)) - qRed(image.pixel(50, y))) < 6,
                     qPrintable(QString::number(y)));
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"picture.jpg"_s));
    }

    void replacedFileHandsOnTimesAndMode()
    {
        const QDateTime changed(QDate(2001, 2, 3), QTime(4, 5, 6)), read(QDate(2002, 2, 3), QTime(4, 5, 6));
        QFile old(m_path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        QVERIFY(old.setFileTime(changed, QFileDevice::FileModificationTime));
        QVERIFY(old.setFileTime(read, QFileDevice::FileAccessTime));
        old.close();
        QVERIFY(old.setPermissions(QFile::ReadOwner | QFile::ReadGroup));
        const auto mode = old.permissions();
        writePicture(QImage(5, 4, QImage::Format_RGB32), m_path);
        const QFileInfo file(m_path);
        QCOMPARE(file.lastModified(), changed);
        QCOMPARE(file.lastRead(), read);
        QCOMPARE(file.permissions(), mode);
        QCOMPARE(QImage(m_path).size(), QSize(5, 4));
    }

    void failure()
    {
        // No folder, no pixels, more than the format holds.
        for (const auto &[size, folder, number] :
             {std::tuple(QSize(4, 4), u"none/"_s, 76), {QSize(), {}, 3}, {QSize(70000, 1), {}, 0}}) {
            const QString path = m_folder.filePath(folder + u"failing.jpg"_s);
            try {
                writePicture(QImage(size, QImage::Format_RGB32), path);
                QFAIL("written");
            } catch (const NumberedError &error) {
                QCOMPARE(error.number(), jpegError);
                QCOMPARE(error.description(), u"Failed to save to JPG %1"_s.arg(number));
            }
            QVERIFY(!QFileInfo::exists(path));
        }
    }

    // The old pictures go with the second step and not before; what is no picture stays.
    void twoSteps()
    {
        const QString folder = m_folder.path() + u'/';
        QVERIFY(QDir(folder).mkdir(u"images"_s));
        for (const auto *name : {u"00000012.gif", u"00000012.JPG", u"00000012.txt", u"00000013.gif"})
            QVERIFY(QFile(u"%1images/%2"_s.arg(folder, QString::fromUtf16(name))).open(QIODevice::WriteOnly));
        const auto files = [&] { return QDir(folder + u"images"_s).entryList(QDir::Files | QDir::Hidden); };
        const QStringList before = files();
        const QImage image(5, 4, QImage::Format_RGB32);
        NewPictureFile(image, folder, 12);
        QCOMPARE(files(), before);
        NewPictureFile(image, folder, 12).place();
        QCOMPARE(files(), QStringList({u"00000012.jpg"_s, u"00000012.txt"_s, u"00000013.gif"_s}));
        QCOMPARE(findPictureFile(folder, 12), folder + u"images/00000012.jpg"_s);
    }

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

QTEST_MAIN(WritingTest)
#include "Writing.moc"
