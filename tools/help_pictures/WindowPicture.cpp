// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "WindowPicture.h"

#include <QApplication>
#include <QDir>
#include <QHash>
#include <QImageWriter>
#include <QLabel>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace obelmark {

namespace {

constexpr int titleHeight = 25;
constexpr int mostColours = 256;

int distance(QRgb a, QRgb b)
{
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// The most frequent colours, in an order that depends on nothing but the picture.
QList<QRgb> palette(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QList<QRgb> colours = counts.keys();
    std::ranges::sort(
        colours, [&counts](QRgb a, QRgb b) { return std::pair(counts[b], a) < std::pair(counts[a], b); });
    return colours.first(std::min<qsizetype>(colours.size(), mostColours));
}

QImage withPalette(const QImage &picture)
{
    const QList<QRgb> colours = palette(picture);
    QHash<QRgb, uchar> nearest;
    QImage indexed(picture.size(), QImage::Format_Indexed8);
    indexed.setColorTable(colours);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            auto known = nearest.constFind(colour);
            if (known == nearest.cend()) {
                const auto best =
                    std::ranges::min_element(colours, {}, [colour](QRgb c) { return distance(c, colour); });
                known = nearest.insert(colour, uchar(best - colours.cbegin()));
            }
            indexed.scanLine(y)[x] = *known;
        }
    }
    return indexed;
}

/// The main window tells in which folder it works, which is another one every time.
void nameFolder(const QWidget &window)
{
    auto *note = window.findChild<QLabel *>(QStringLiteral("lblNote"));
    if (note && note->text() == QDir::currentPath())
        note->setText(QStringLiteral("/home/ada/Coins"));
}

QImage titleBar(const QString &title, int width)
{
    QImage bar(width, titleHeight, QImage::Format_RGB32);
    bar.fill(QColor(222, 226, 232));
    QPainter painter(&bar);
    QFont font = QApplication::font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(60, 64, 72));
    painter.drawText(bar.rect(), Qt::AlignCenter, title);
    return bar;
}

} // namespace

QImage pictureOf(QWidget &window, const QList<QWidget *> &over)
{
    nameFolder(window);
    const QRect inside(QPoint(1, titleHeight + 1), window.size());
    const QRect frame = inside.adjusted(-1, -titleHeight - 1, 1, 1);
    QRect whole = frame;
    for (const QWidget *widget : over)
        whole |= widget->geometry().translated(inside.topLeft() - window.mapToGlobal(QPoint(0, 0)));

    QImage picture(whole.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.translate(-whole.topLeft());
    painter.drawImage(frame.topLeft(), titleBar(window.windowTitle(), frame.width()));
    painter.drawPixmap(inside.topLeft(), window.grab());
    painter.setPen(QColor(150, 154, 162));
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
    for (QWidget *widget : over)
        painter.drawPixmap(inside.topLeft() + window.mapFromGlobal(widget->pos()), widget->grab());
    return picture;
}

bool savePicture(const QImage &picture, const QString &path)
{
    QImageWriter writer(path, "png");
    writer.setCompression(100);
    return writer.write(withPalette(picture));
}

} // namespace obelmark
