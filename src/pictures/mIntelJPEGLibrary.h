// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

class QImage;

namespace obelmark {

class cDIBSection;

/// The number of the errors that writing a JPEG file raises.
inline constexpr int jpegError = 26001;

/// Writes a bitmap as a JPEG file; \a quality is 1 to 100. The file is complete or not there; one that it
/// replaces stays until then and hands on its times and mode. Answers true. \throws NumberedError jpegError
bool WriteJPEGFile(const cDIBSection &section, const QString &fileName, qint32 quality);

/// A picture as the coins' pictures are written: a bitmap of it at quality 90. \throws NumberedError
/// jpegError
QByteArray jpegOf(const QImage &picture);

/// Writes that. \throws as WriteJPEGFile()
void writePicture(const QImage &picture, const QString &fileName);

/// Carries out a step of writing a picture's file. \throws NumberedError jpegError for what that raises
void writingJpeg(const std::function<void()> &step);

} // namespace obelmark
