// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/SafeFile.h"
#include <QString>
#include <optional>

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
    // Destroyed before it has been put in place, the picture is dropped.

    /// The coin's other pictures go. \throws NumberedError
    void place();

private:
    QString m_appFolder;
    qint64 m_coinId;
    std::optional<SafeFile> m_file;
};

} // namespace obelmark
