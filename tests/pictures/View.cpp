// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/PictureView.h"
#include "pictures/PictureZoom.h"
#include "support/GuiDriver.h"

using namespace obelmark;
using namespace Qt::StringLiterals;

/// A picture of 400 by 400 in a view of 200 by 200: red tells the column, green the row, both halved.
class ViewTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    PictureView m_view;

    /// Which place of the picture is seen there.
    QPoint seenAt(QPoint place)
    {
        const QColor colour = m_view.grab().toImage().pixelColor(place);
        return QPoint(colour.red() * 2, colour.green() * 2);
    }
    static bool isNear(QPoint place, QPoint other) { return (place - other).manhattanLength() <= 8; }
    void roll(int angle, QPoint place)
    {
        QWheelEvent event(place, m_view.mapToGlobal(QPointF(place)), {}, {0, angle}, {}, {}, {}, false);
        QApplication::sendEvent(&m_view, &event);
    }

private slots:
    void initTestCase()
    {
        QImage image(400, 400, QImage::Format_RGB32);
        for (int y = 0; y < 400; ++y) {
            for (int x = 0; x < 400; ++x)
                image.setPixelColor(x, y, QColor(x / 2, y / 2, 0));
        }
        QVERIFY(image.save(m_folder.filePath(u"p.png"_s)));
        m_view.resize(200, 200);
        QVERIFY(gui::activate(m_view) || m_view.isActiveWindow());
    }
    void init()
    {
        m_view.setPicture(Picture::fromFile(m_folder.filePath(u"p.png"_s), m_view.boxes()));
        QVERIFY(isNear(seenAt({50, 60}), {100, 120}));
    }

    void doubleClick()
    {
        QTest::mouseDClick(&m_view, Qt::LeftButton, {}, {50, 60});
        QVERIFY(isNear(seenAt({50, 60}), {100, 120}));
        QVERIFY(isNear(seenAt({90, 60}), {140, 120}));
        QTest::mouseDClick(&m_view, Qt::LeftButton, {}, {90, 60});
        QVERIFY(m_view.zoom().isFitted());
    }

    void drag()
    {
        QTest::mouseDClick(&m_view, Qt::LeftButton, {}, {100, 100});
        QTest::mousePress(&m_view, Qt::LeftButton, {}, {100, 100});
        QCOMPARE(m_view.cursor().shape(), Qt::ClosedHandCursor);
        QTest::mouseMove(&m_view, {70, 110});
        QTest::mouseRelease(&m_view, Qt::LeftButton, {}, {70, 110});
        QCOMPARE(m_view.cursor().shape(), Qt::OpenHandCursor);
        QVERIFY(isNear(seenAt({70, 110}), {200, 200}));
    }

    void wheel()
    {
        for (int i = 0; i < 20; ++i)
            roll(120, {50, 60});
        QVERIFY(m_view.zoom().scale() > 2);
        QVERIFY(isNear(seenAt({50, 60}), {100, 120}));
        QVERIFY(isNear(seenAt({60, 60}), QPoint(100 + int(10 / m_view.zoom().scale()), 120)));
    }

    void keys()
    {
        const double fitted = m_view.zoom().scale();
        QTest::keyClick(&m_view, Qt::Key_Plus);
        QVERIFY(m_view.zoom().scale() > fitted);
        const QPoint before = seenAt({100, 100});
        QTest::keyClick(&m_view, Qt::Key_Right);
        QVERIFY(seenAt({100, 100}).x() > before.x());
        QTest::keyClick(&m_view, Qt::Key_0);
        QVERIFY(m_view.zoom().isFitted());
    }

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

QTEST_MAIN(ViewTest)
#include "View.moc"
