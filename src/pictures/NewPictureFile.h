#pragma once

#include <QString>

class QImage;

namespace obelmark {

/// A coin's new picture on its way into the images folder, in two steps with the coin's record between them:
/// written whole under a temporary name first, put in place when the record has been saved. A crash between
/// the two leaves the coin with its old picture.
class NewPictureFile
{
public:
    /// Writes the picture, quality 90. \throws NumberedError jpegError
    NewPictureFile(const QImage &picture, const QString &appFolder, qint64 coinId);
    /// Drops the picture unless it has been put in place.
    ~NewPictureFile();
    NewPictureFile(const NewPictureFile &) = delete;
    NewPictureFile &operator=(const NewPictureFile &) = delete;

    /// The coin's other pictures go. \throws NumberedError
    void place();

private:
    QString m_appFolder;
    qint64 m_coinId;
    QString m_temporary;
};

} // namespace obelmark
