#include "MetafileSamples.h"
#include "pictures/Picture.h"
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace obelmark;

namespace {

/// A record of a shape: its bounds, counts, and points of 32 or 16 bits.
template<class Number = qint32>
QByteArray shape(quint32 type, std::initializer_list<qint32> counts, std::initializer_list<Number> points)
{
    return emf::record(type,
                       bytesOf<qint32>({0, 0, 0, 0}) + bytesOf<qint32>(counts) + bytesOf<Number>(points));
}

QByteArray select(quint32 object)
{
    return emf::record(37, bytesOf<quint32>({object}));
}

QByteArray transform(std::initializer_list<float> matrix, qint32 how)
{
    return emf::record(36, bytesOf<float>(matrix) + bytesOf<qint32>({how}));
}

} // namespace

/// Each record draws something blue, or the colour given, over (100, 100) and nothing over (300, 50).
class EmfRecords : public QObject
{
    Q_OBJECT
private slots:
    void draws_data()
    {
        QTest::addColumn<QByteArray>("records");
        QTest::addColumn<QColor>("colour");
        const auto row = [](const char *name, const QByteArray &records, QColor colour = Qt::blue) {
            const QByteArray tooShort = emf::record(38, {1}); // and passed over
            const QByteArray bluePenAndBrush = emf::record(38, {1, 0, 16, 0, 0xFF0000}) + select(1) +
                                               emf::record(39, {2, 0, 0xFF0000, 0}) + select(2);
            QTest::newRow(name) << emf::file(tooShort + bluePenAndBrush + records) << colour;
        };
        const QByteArray toTheStart = emf::record(27, {50, 100});
        row("polyline", shape(4, {2}, {50, 100, 150, 100}));
        row("polyline of 16 bits", shape<qint16>(87, {2}, {50, 100, 150, 100}));
        row("polyline to", toTheStart + shape(6, {1}, {150, 100}));
        row("polyline to of 16 bits", toTheStart + shape<qint16>(89, {1}, {150, 100}));
        row("polylines", shape(7, {2, 4, 2, 2}, {50, 100, 150, 100, 10, 10, 20, 10}));
        row("polylines of 16 bits", shape<qint16>(90, {2, 4, 2, 2}, {10, 10, 20, 10, 50, 100, 150, 100}));
        row("polygon", shape(3, {4}, {50, 50, 150, 50, 150, 150, 50, 150}));
        row("polygons of 16 bits, one in the other, wound the same way",
            emf::record(19, {2}) +
                shape<qint16>(91, {2, 6, 3, 3}, {0, 0, 250, 0, 0, 250, 50, 50, 180, 50, 50, 180}));
        row("curve", shape(2, {4}, {50, 100, 80, 100, 120, 100, 150, 100}));
        row("curve of 16 bits", shape<qint16>(85, {4}, {50, 100, 80, 100, 120, 100, 150, 100}));
        row("curve to", toTheStart + shape(5, {3}, {80, 100, 120, 100, 150, 100}));
        row("curve to of 16 bits", toTheStart + shape<qint16>(88, {3}, {80, 100, 120, 100, 150, 100}));
        row("rounded rectangle", emf::record(44, {50, 50, 150, 150, 20, 20}));
        row("pie", emf::record(47, {0, 40, 200, 200, 200, 120, 0, 120}));
        row("extended pen",
            emf::record(95, {3, 0, 0, 0, 0, 0x10000, 16, 0, 0x00FF00, 0, 0}) + select(3) +
                shape(4, {2}, {50, 100, 150, 100}),
            Qt::green);
        row("stock objects", select(0x80000004) + select(0x80000008) + emf::record(43, {50, 50, 150, 150}),
            Qt::black);
        row("no brush", select(0x80000005) + emf::record(43, {50, 50, 150, 150}), Qt::white);
        row("world moved", transform({1, 0, 0, 1, 100, 100}, 4) + emf::record(43, {-9, -9, 9, 9}));
        row("world moved after it was enlarged", transform({2, 0, 0, 2, 0, 0}, 4) +
                                                     transform({1, 0, 0, 1, 50, 50}, 2) +
                                                     emf::record(43, {-9, -9, 9, 9}));
        row("world enlarged after it was moved", transform({1, 0, 0, 1, 50, 50}, 4) +
                                                     transform({2, 0, 0, 2, 0, 0}, 3) +
                                                     emf::record(43, {-9, -9, 9, 9}));
        row("world as it was", transform({1, 0, 0, 1, 500, 0}, 4) + transform({1, 0, 0, 1, 0, 0}, 1) +
                                   emf::record(43, {50, 50, 150, 150}));
        row("bitmap to the device",
            emf::record(80, bytesOf<qint32>({0, 0, 0, 0, 100, 100, 0, 1, 2, 1, 76, 40, 116, 16, 0, 0, 2}) +
                                smallBitmap()),
            Qt::red);
        row("bitmap that is cut off",
            emf::record(80, bytesOf<qint32>({0, 0, 0, 0, 100, 100, 0, 1, 2, 1, 76, 40, 116, 8, 0, 0, 2}) +
                                smallBitmap().chopped(8)),
            Qt::white);
        row("fill of a block transfer",
            emf::record(76, bytesOf<qint32>({0, 0, 0, 0, 50, 50, 100, 100, 0x00F00021, 0, 0}) +
                                bytesOf<float>({1, 0, 0, 1, 0, 0}) + bytesOf<qint32>({0, 0, 0, 0, 0, 0})));
    }

    void draws()
    {
        QFETCH(QByteArray, records);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("picture.emf")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(records) == records.size() && file.flush());
        const QImage picture =
            Picture::fromFile(file.fileName(), {QSize(2000, 2000), QSize(2000, 2000)}).whole();
        const auto at = [&](int x, int y) {
            return picture.pixelColor(picture.width() * x / 400, picture.height() * y / 200);
        };
        QTEST(at(100, 100), "colour");
        QCOMPARE(at(300, 50), QColor(Qt::white));
    }
};

QTEST_MAIN(EmfRecords)
#include "EmfRecords.moc"
