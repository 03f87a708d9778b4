// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/Picture.h"

#include "pictures/PictureFormat.h"
#include "pictures/metafiles/Metafile.h"
#include "runtime/NumberedError.h"
#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

// A camera's largest, and no more than half a gigabyte when decoded.
constexpr qint64 mostPixels = 128'000'000;
constexpr int mostMegabytes = 512;
constexpr int longestSide = 65500; // of a JPEG file
constexpr qint64 largestFile = 1'000'000'000;

bool isTooLarge(QSize size)
{
    return qint64(size.width()) * size.height() > mostPixels || size.width() > longestSide ||
           size.height() > longestSide;
}

NumberedError failure(const QString &path, const QString &reason)
{
    return NumberedError(invalidPicture, u"The picture file '%1' could not be read: %2."_s.arg(path, reason));
}

QImage plain(QImage image)
{
    if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb))
        image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    if (image.hasAlphaChannel()) {
        QImage opaque(image.size(), QImage::Format_RGB32);
        opaque.fill(Qt::white);
        QPainter(&opaque).drawImage(opaque.rect(), image, image.rect());
        return opaque;
    }
    image.convertTo(QImage::Format_RGB32);
    return image;
}

/// A decoder's own set-up over a file in memory.
class Decoder
{
public:
    Decoder(const QByteArray &bytes, const QByteArray &format)
    {
        QImageReader::setAllocationLimit(mostMegabytes);
        m_buffer.setData(bytes);
        m_buffer.open(QIODevice::ReadOnly);
        m_reader.setDevice(&m_buffer);
        m_reader.setFormat(format);
        m_reader.setAutoTransform(true);
    }
    QImageReader &reader() { return m_reader; }
    bool isTurned() const { return m_reader.transformation() & QImageIOHandler::TransformationRotate90; }

private:
    QBuffer m_buffer;
    QImageReader m_reader;
};

/// An icon file holds a picture in several sizes.
void jumpToLargest(QImageReader &reader)
{
    int best = 0;
    qint64 most = 0;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const qint64 pixels = qint64(reader.size().width()) * reader.size().height();
        if (pixels > most) {
            most = pixels;
            best = i;
        }
    }
    reader.jumpToImage(best);
}

} // namespace

Picture::Picture(const QImage &image)
{
    if (isTooLarge(image.size()))
        return;
    m_preview = m_whole = plain(image);
    m_size = m_whole.size();
}

Picture Picture::fromFile(const QString &path, const Boxes &boxes)
{
    const QString damaged = u"it is damaged or incomplete"_s, tooLarge = u"it is too large"_s;
    // To open a named pipe is to wait for ever, and a device may have no end.
    if (const QFileInfo info(path); info.exists() && !info.isFile())
        throw failure(path, u"it is no file"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw failure(path, file.errorString());
    if (file.size() > largestFile)
        throw failure(path, tooLarge);
    const QByteArray bytes = file.readAll();
    const PictureFormat format = formatOf(bytes);
    if (format.kind == PictureKind::None)
        throw failure(path, u"it is no picture of a known kind"_s);
    if (format.kind == PictureKind::Wmf || format.kind == PictureKind::Emf) {
        const auto draw = format.kind == PictureKind::Wmf ? drawWmf : drawEmf;
        const QImage drawn = draw(bytes, boxes.metafile);
        if (drawn.isNull())
            throw failure(path, damaged);
        return Picture(drawn);
    }

    Decoder decoder(bytes, format.name);
    QImageReader &reader = decoder.reader();
    if (format.name == "ico" || format.name == "cur")
        jumpToLargest(reader);
    if (isTooLarge(reader.size()))
        throw failure(path, tooLarge);
    if (!isComplete(format, bytes))
        throw failure(path, damaged);
    const Picture picture =
        format.kind == PictureKind::Jpeg ? fromJpeg(bytes, boxes.preview) : Picture(reader.read());
    if (picture.isEmpty())
        throw failure(path, damaged);
    return picture;
}

Picture Picture::fromJpeg(const QByteArray &bytes, QSize box)
{
    Decoder decoder(bytes, "jpg");
    QImageReader &reader = decoder.reader();
    const QSize size = decoder.isTurned() ? reader.size().transposed() : reader.size();
    const QSize wanted = size.scaled(box, Qt::KeepAspectRatioByExpanding);
    if (wanted.isEmpty() || wanted.width() >= size.width())
        return Picture(reader.read());
    Picture picture;
    reader.setScaledSize(decoder.isTurned() ? wanted.transposed() : wanted);
    picture.m_preview = plain(reader.read());
    if (picture.m_preview.isNull())
        return {};
    picture.m_size = size;
    picture.m_jpeg = bytes;
    return picture;
}

QImage Picture::whole() const
{
    if (m_whole.isNull() && !m_jpeg.isEmpty())
        m_whole = plain(Decoder(m_jpeg, "jpg").reader().read());
    return m_whole;
}

} // namespace obelmark
