#include "pictures/mIntelJPEGLibrary.h"

#include "pictures/PictureFiles.h"
#include "pictures/cDIBSection.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

bool WriteJPEGFile(const cDIBSection &section, const QString &fileName, qint32 quality)
{
    const QByteArray bytes = encode(section, quality);
    // Names for all pictures: only one program at a time has the collection open, and what an earlier one has
    // left behind is written over.
    const QString temporary = QFileInfo(fileName).path() + u'/' + unfinishedJpeg;
    try {
        QFile::remove(temporary);
        SafeFile file(temporary, unfinishedBytes);
        file.write(bytes);
        file.commit();
        putInPlace(temporary, fileName);
    } catch (const NumberedError &error) {
        QFile::remove(temporary);
        throw NumberedError(jpegError, u"Failed to save to JPG %1"_s.arg(error.number()));
    }
    return true;
}

void writePicture(const QImage &picture, const QString &fileName)
{
    constexpr qint32 quality = 90;
    cDIBSection section;
    if (!section.CreateFromPicture(picture))
        throw NumberedError(jpegError,
                            u"Failed to save to JPG %1"_s.arg(int(QImageWriter::InvalidImageError)));
    WriteJPEGFile(section, fileName, quality);
}

} // namespace obelmark
