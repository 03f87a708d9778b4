#pragma once

#include <QString>

class QImage;

namespace obelmark {

class cDIBSection;

/// The number of the errors that writing a JPEG file raises.
inline constexpr int jpegError = 26001;

/// Writes a bitmap as a JPEG file; \a quality is 1 to 100. The file is complete or not there; one that it
/// replaces stays until then and hands on its times and mode. Answers true. \throws NumberedError jpegError
bool WriteJPEGFile(const cDIBSection &section, const QString &fileName, qint32 quality);

/// Writes a picture as the coins' pictures are written: a bitmap of it at quality 90. \throws as
/// WriteJPEGFile()
void writePicture(const QImage &picture, const QString &fileName);

} // namespace obelmark
