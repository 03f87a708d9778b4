// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/mIntelJPEGLibrary.h"

#include "pictures/PictureFiles.h"
#include "pictures/cDIBSection.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QBuffer>
#include <QImage>
#include <QImageWriter>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 pictureQuality = 90;

QByteArray encode(const cDIBSection &section, qint32 quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setQuality(quality);
    if (!writer.canWrite())
        throw NumberedError(jpegError,
                            u"Failed to initialise the IJL library: %1"_s.arg(int(writer.error())));
    const QImage bottomUp(section.DIBSectionBitsPtr(), section.Width(), section.Height(),
                          section.BytesPerScanLine(), QImage::Format_BGR888);
    if (!writer.write(bottomUp.mirrored()))
        throw NumberedError(jpegError, u"Failed to save to JPG %1"_s.arg(int(writer.error())));
    return bytes;
}

void writeFile(const QByteArray &bytes, const QString &fileName)
{
    writingJpeg([&] {
        SafeFile file(fileName, unfinishedPicture, true);
        file.write(bytes);
        file.commit();
    });
}

} // namespace

bool WriteJPEGFile(const cDIBSection &section, const QString &fileName, qint32 quality)
{
    writeFile(encode(section, quality), fileName);
    return true;
}

QByteArray jpegOf(const QImage &picture)
{
    cDIBSection section;
    if (!section.CreateFromPicture(picture))
        throw NumberedError(jpegError,
                            u"Failed to save to JPG %1"_s.arg(int(QImageWriter::InvalidImageError)));
    return encode(section, pictureQuality);
}

void writePicture(const QImage &picture, const QString &fileName)
{
    writeFile(jpegOf(picture), fileName);
}

void writingJpeg(const std::function<void()> &step)
{
    try {
        step();
    } catch (const NumberedError &error) {
        throw NumberedError(jpegError, u"Failed to save to JPG %1"_s.arg(error.number()));
    }
}

} // namespace obelmark
