// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "MetafileSamples.h"
#include "pictures/Picture.h"
#include "runtime/NumberedError.h"
#include <QtGui>
#include <QtTest>
#include <optional>
#include <random>

using namespace obelmark;

namespace {

constexpr Picture::Boxes boxes = {QSize(100, 100), QSize(400, 400)};

/// 40 by 20, blue on the left, red on the right.
QImage twoColours()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(0, 0, 20, 20, Qt::blue);
    return image;
}

QByteArray encoded(const QImage &image, const QByteArray &format,
                   QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setTransformation(turned);
    if (!writer.write(image))
        qFatal("no sample of %s", format.constData());
    return bytes;
}

QByteArray asCursor(QByteArray icon)
{
    icon[2] = 2;
    return icon;
}

/// Written by hand, there being no writer: 2 by 1, blue and red.
QByteArray gif()
{
    return QByteArray::fromHex("474946383961020001008000000000ffff00002c000000000200010000020244 0a003b");
}

QList<std::pair<QByteArray, QByteArray>> samples()
{
    const QImage image = twoColours();
    return {{"bmp", encoded(image, "bmp")},
            {"dib", encoded(image, "bmp").mid(14)},
            {"gif", gif()},
            {"jpg", encoded(image, "jpg")},
            {"png", encoded(image, "png")},
            {"tiff", encoded(image, "tiff")},
            {"webp", encoded(image, "webp")},
            {"ico", encoded(image, "ico")},
            {"cur", asCursor(encoded(image, "ico"))},
            {"wmf", wmfSample(false)},
            {"placeable wmf", wmfSample(true)},
            {"emf", emfFile(cases::linesOf(u"Reading"_s, u"emf"_s))}};
}

bool isLike(QColor colour, QColor expected)
{
    return qAbs(colour.red() - expected.red()) < 16 && qAbs(colour.green() - expected.green()) < 16 &&
           qAbs(colour.blue() - expected.blue()) < 16;
}

} // namespace

class ReadingTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"picture"_s);

    Picture read(const QByteArray &bytes) const
    {
        QFile file(m_path);
        file.remove(); // writing over a file waits for the disk
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the sample could not be written");
        file.close();
        return Picture::fromFile(m_path, boxes);
    }
    QString refusal(const QByteArray &bytes) const
    {
        try {
            read(bytes);
            return {};
        } catch (const NumberedError &error) {
            return error.number() == invalidPicture ? error.description() : u"another error"_s;
        }
    }

private slots:
    void everyFormat_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const auto &[name, bytes] : samples())
            QTest::newRow(name.constData()) << bytes;
    }
    // The kind is told by the contents; the file has no extension here.
    void everyFormat()
    {
        QFETCH(QByteArray, bytes);
        const QImage whole = read(bytes).whole();
        const int width = whole.width(), height = whole.height();
        if (width == 400) { // the picture of the metafiles
            QCOMPARE(height, 200);
            QVERIFY(isLike(whole.pixelColor(150, 70), Qt::red));
            QVERIFY(isLike(whole.pixelColor(10, 50), Qt::blue));
            QVERIFY(isLike(whole.pixelColor(100, 150), Qt::green));
            QVERIFY(isLike(whole.pixelColor(5, 105), Qt::white));
            QVERIFY(isLike(whole.pixelColor(215, 15), Qt::red));
            QVERIFY(isLike(whole.pixelColor(385, 15), Qt::green));
            QVERIFY(isLike(whole.pixelColor(215, 185), Qt::blue));
        } else {
            QVERIFY(width == 2 * height);
            QVERIFY(isLike(whole.pixelColor(0, 0), Qt::blue));
            QVERIFY(isLike(whole.pixelColor(width - 1, height - 1), Qt::red));
        }
    }

    void truncated_data() { everyFormat_data(); }
    void truncated()
    {
        QFETCH(QByteArray, bytes);
        for (const double part : {0.3, 0.7, 0.95}) {
            const qsizetype size = std::min(qsizetype(double(bytes.size()) * part), bytes.size() - 3);
            QVERIFY2(!refusal(bytes.first(size)).isEmpty(), qPrintable(QString::number(part)));
        }
    }

    // Whatever a damaged file makes of itself, reading it ends, in a picture or in the refusal.
    void mutated_data() { everyFormat_data(); }
    void mutated()
    {
        QFETCH(QByteArray, bytes);
        std::mt19937 chance(1);
        const auto below = [&](int end) { return std::uniform_int_distribution(0, end - 1)(chance); };
        for (int round = 0; round < 300; ++round) {
            QByteArray mutant = bytes;
            for (int change = below(4); change >= 0; --change) {
                constexpr uchar values[] = {0x00, 0x01, 0x7F, 0x80, 0xFF};
                mutant[below(int(mutant.size()))] = char(values[below(5)]);
            }
            QVERIFY(refusal(mutant) != u"another error");
        }
    }

    void refused()
    {
        const auto refuse = [this](const QByteArray &bytes, const QString &reason) {
            QCOMPARE(refusal(bytes), u"The picture file '%1' could not be read: %2."_s.arg(m_path, reason));
        };
        const QString noPicture = u"it is no picture of a known kind"_s,
                      damaged = u"it is damaged or incomplete"_s, tooLarge = u"it is too large"_s;
        refuse(QByteArray(), noPicture);
        refuse(QByteArray("These are the notes of a coin."), noPicture);
        QByteArray png = encoded(twoColours(), "png");
        qToBigEndian<quint32>(1'000'000, png.data() + 16);
        refuse(png, damaged); // its checksum is wrong
        QByteArray jpeg = encoded(twoColours(), "jpg");
        const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
        jpeg.replace(frame + 5, 4, QByteArray::fromHex("ffdcffdc"));
        refuse(jpeg, tooLarge);
        QByteArray bitmap = encoded(twoColours(), "bmp");
        qToLittleEndian<quint32>(60'000, bitmap.data() + 18);
        refuse(bitmap, damaged);
    }

    // A large photograph is decoded in part, upright, and whole when that is asked for.
    void photograph()
    {
        const QImage image = twoColours().scaled(4000, 2000);
        const Picture picture = read(encoded(image, "jpg", QImageIOHandler::TransformationRotate90));
        QCOMPARE(picture.size(), QSize(2000, 4000));
        QCOMPARE(picture.preview().size(), QSize(100, 200));
        QVERIFY(isLike(picture.preview().pixelColor(50, 10), Qt::blue));
        QCOMPARE(picture.whole().size(), QSize(2000, 4000));
        QVERIFY(isLike(picture.whole().pixelColor(1000, 3990), Qt::red));
    }

    void emfRecordDraws_data() { cases::add(); }
    void emfRecordDraws()
    {
        const auto [name, records, colour] = cases::row<3>();
        // A record that is too short and passed over, a blue pen, a blue brush.
        const QString before = u"38 1; 38 1 0 16 0 0xFF0000; 37 1; 39 2 0 0xFF0000 0; 37 2; "_s;
        const QImage picture = read(emfFile((before + records).split(u';'))).whole();
        const auto at = [&](int x, int y) {
            return picture.pixelColor(picture.width() * x / 400, picture.height() * y / 200);
        };
        QCOMPARE(at(100, 100), colour.isEmpty() ? QColor(Qt::blue) : QColor(colour));
        QCOMPARE(at(300, 50), QColor(Qt::white));
    }

    void transparentIsWhite()
    {
        QImage image(10, 10, QImage::Format_ARGB32);
        image.fill(QColor(0, 0, 0, 0));
        QCOMPARE(read(encoded(image, "png")).whole().pixelColor(5, 5), QColor(Qt::white));
    }

    void largestOfAnIcon()
    {
        const QImage image = twoColours();
        QByteArray small = encoded(image.scaled(8, 4), "ico"), large = encoded(image, "ico");
        const auto size = quint32(small.size() - 22);
        QByteArray both =
            small.first(4) + bytesOf<quint16>({2}) + small.mid(6, 16) + large.mid(6, 16) + small.mid(22);
        qToLittleEndian<quint32>(38, both.data() + 18);
        qToLittleEndian<quint32>(38 + size, both.data() + 34);
        QCOMPARE(read(both + large.mid(22)).size(), image.size());
    }
};

QTEST_MAIN(ReadingTest)
#include "Reading.moc"
