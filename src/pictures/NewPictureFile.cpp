// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/NewPictureFile.h"

#include "pictures/PictureFiles.h"
#include "pictures/mIntelJPEGLibrary.h"
#include <QDir>

namespace obelmark {

NewPictureFile::NewPictureFile(const QImage &picture, const QString &appFolder, qint64 coinId)
    : m_appFolder(appFolder), m_coinId(coinId)
{
    // The folder may have been taken away since the program began.
    QDir().mkpath(imagesFolder(appFolder));
    const QByteArray bytes = jpegOf(picture);
    writingJpeg([&] {
        m_file.emplace(writtenPictureFile(appFolder, coinId), unfinishedPicture, true);
        m_file->write(bytes);
        m_file->finish();
    });
}

void NewPictureFile::place()
{
    m_file->commit();
    m_file.reset();
    deleteReplacedPictures(m_appFolder, m_coinId);
}

} // namespace obelmark
