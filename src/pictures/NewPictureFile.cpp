#include "pictures/NewPictureFile.h"

#include "pictures/PictureFiles.h"
#include "pictures/cDIBSection.h"
#include "pictures/mIntelJPEGLibrary.h"
#include "runtime/NumberedError.h"
#include <QDir>
#include <QFile>
#include <QImage>

namespace obelmark {

using namespace Qt::StringLiterals;

NewPictureFile::NewPictureFile(const QImage &picture, const QString &appFolder, qint64 coinId)
    : m_appFolder(appFolder), m_coinId(coinId), m_temporary(imagesFolder(appFolder) + unfinishedPicture)
{
    // The folder may have been taken away since the program began.
    QDir().mkpath(imagesFolder(appFolder));
    QFile::remove(m_temporary);
    writePicture(picture, m_temporary);
}

NewPictureFile::~NewPictureFile()
{
    if (!m_temporary.isEmpty())
        QFile::remove(m_temporary);
}

void NewPictureFile::place()
{
    putInPlace(m_temporary, writtenPictureFile(m_appFolder, m_coinId));
    m_temporary.clear();
    deleteReplacedPictures(m_appFolder, m_coinId);
}

} // namespace obelmark
