// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the pictures of the windows that the help shows, the same ones whenever and wherever it is run. One
// picture alone: help_pictures take:main-window.png
#include "Scenes.h"
#include "Stage.h"
#include "WindowPicture.h"
#include <QApplication>
#include <QDate>
#include <QFontInfo>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

using namespace Qt::StringLiterals;

/// The day on which the pictures are taken, whatever the calendar says: this takes the place of the
/// library's.
QDate QDate::currentDate()
{
    return {2026, 5, 30};
}

class HelpPictures : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // The letters of the windows, those of reports, those of the coin.
        for (const QString &family : {u"Liberation Sans"_s, u"Liberation Serif"_s, u"DejaVu Serif"_s})
            QVERIFY2(QFontInfo(QFont(family)).exactMatch(), qPrintable(family + u" is not installed"_s));
    }

    void take_data()
    {
        QTest::addColumn<const obelmark::Scene *>("scene");
        for (const obelmark::Scene &scene : obelmark::scenes)
            QTest::newRow(scene.file) << &scene;
    }
    void take()
    {
        QFETCH(const obelmark::Scene *, scene);
        obelmark::Stage stage;
        const QImage picture = scene->take(stage);
        QVERIFY(!picture.isNull());
        const QString path = QStringLiteral(HELP_PICTURES_DIR "/") + QString::fromLatin1(scene->file);
        QVERIFY2(obelmark::savePicture(picture, path), qPrintable(path));
    }
};

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "en_US.UTF-8");
    for (const char *variable : {"LANGUAGE", "QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_STYLE_OVERRIDE"})
        qunsetenv(variable);
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Obelmark"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setCursorFlashTime(0);
    QFont font(u"Liberation Sans"_s, 9);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(font);
    HelpPictures pictures;
    return QTest::qExec(&pictures, argc, argv);
}

#include "HelpPictures.moc"
