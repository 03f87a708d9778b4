// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_pictures: a photograph of 50 megapixels from the file to the screen, fitted into the picture window,
// against decoding all of it.
#include "Comparison.h"
#include "pictures/PictureView.h"
#include <QApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <random>
#include <stdexcept>

namespace {

using namespace obelmark;
using namespace obelmark::bench;

constexpr int width = 8660, height = 5774;

/// As hard on a decoder as a photograph: soft shapes, and noise in every pixel.
void makePhotograph(const QString &path)
{
    QImage image(width, height, QImage::Format_RGB32);
    std::minstd_rand chance(1);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int noise = int(chance() >> 16 & 15);
            line[x] = qRgb(x * 240 / width + noise, y * 240 / height + noise, (x + y) % 240 + noise);
        }
    }
    if (!QImageWriter(path, "jpg").write(image))
        throw std::runtime_error("the photograph could not be written");
}

Sides prepare()
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString path = folder->filePath(QStringLiteral("photograph.jpg"));
    makePhotograph(path);
    const auto view = std::make_shared<PictureView>();
    view->resize(521, 465);
    view->show();
    QCoreApplication::processEvents();
    return {.ours =
                [=] {
                    return milliseconds([&] {
                        view->setPicture(Picture::fromFile(path, view->boxes()));
                        view->repaint();
                    });
                },
            .other =
                [=, kept = folder] {
                    return milliseconds([&] {
                        QImageReader reader(path);
                        QImageReader::setAllocationLimit(512);
                        if (reader.read().isNull())
                            throw std::runtime_error("the photograph could not be read");
                    });
                }};
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    registerComparison({.name = "picture of 50 megapixels, file to screen",
                        .prepare = prepare,
                        .pairs = 10,
                        .target = {.atMost = 500},
                        .against = "decoding all of it"});
    return runComparisons(argc, argv);
}
