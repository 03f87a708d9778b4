#pragma once

#include <QString>

namespace obelmark {

/// The folder that holds the coins' pictures, with a trailing "/".
QString imagesFolder(const QString &appFolder);

/// The path of a coin's picture: a file in the images folder named by the coin's key in eight digits, with
/// any extension. Empty when the coin has none.
QString findPictureFile(const QString &appFolder, qint64 coinId);

} // namespace obelmark
