#include "pictures/PictureZoom.h"
#include <QTest>

using namespace obelmark;

class ZoomTest : public QObject
{
    Q_OBJECT
private slots:
    void fitting()
    {
        const std::pair<QSizeF, QRectF> places[] = {{{4000, 1000}, {0, 75, 200, 50}},
                                                    {{1000, 4000}, {75, 0, 50, 200}},
                                                    {{100, 50}, {50, 75, 100, 50}}};
        for (const auto &[picture, place] : places) {
            PictureZoom zoom;
            zoom.setPicture(picture);
            zoom.setViewport(QSizeF(200, 200));
            QCOMPARE(zoom.place(), place);
            zoom.zoom(0.5, QPointF(10, 10)); // no smaller than that
            QCOMPARE(zoom.place(), place);
            QVERIFY(zoom.isFitted());
        }
    }

    void aboutThePointer()
    {
        PictureZoom zoom;
        zoom.setViewport(QSizeF(200, 200));
        zoom.setPicture(QSizeF(400, 400));
        const QPointF pointer(50, 150); // on 100, 300 of the picture
        zoom.toggle(pointer);
        QCOMPARE(zoom.scale(), 1.0);
        QCOMPARE(zoom.place().topLeft(), QPointF(-50, -150));
        zoom.zoom(4, pointer);
        QCOMPARE(zoom.place().topLeft(), QPointF(50 - 4 * 100, 150 - 4 * 300));
        zoom.zoom(1000, pointer);
        QCOMPARE(zoom.scale(), 32.0);
        zoom.toggle(pointer);
        QVERIFY(zoom.isFitted());
    }

    void noGapIsLeft()
    {
        PictureZoom zoom;
        zoom.setViewport(QSizeF(200, 200));
        zoom.setPicture(QSizeF(400, 300));
        zoom.toggle(QPointF(100, 100));
        zoom.pan(QPointF(1000, -1000));
        QCOMPARE(zoom.place().topLeft(), QPointF(0, -100));
        zoom.setViewport(QSizeF(500, 250)); // room across, not down
        QCOMPARE(zoom.place().topLeft(), QPointF(50, -50));
        QVERIFY(!zoom.isFitted());
    }
};

QTEST_GUILESS_MAIN(ZoomTest)
#include "Zoom.moc"
