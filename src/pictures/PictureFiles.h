// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

struct SharedState;

/// The folder that holds the coins' pictures, with a trailing "/".
QString imagesFolder(const QString &appFolder);

/// Makes the folder when there is none. \throws PathFileAccess, the description naming the folder and what is
/// in the way
void makeImagesFolder(const QString &appFolder);

/// The path of a coin's picture: a file in the images folder named by the coin's key in eight digits, with
/// any extension. Empty when the coin has none. Of several the one that this program has written (".jpg")
/// comes first.
QString findPictureFile(const QString &appFolder, qint64 coinId);

/// Where a new picture of the coin is written.
QString writtenPictureFile(const QString &appFolder, qint64 coinId);

/// The name of a picture in the making in the images folder. There is one at most, so that nobody has to look
/// for it among all the pictures.
inline constexpr QLatin1StringView unfinishedPicture(".obelmark-picture.tmp");

/// Removes the one that a run which was cut off has left. See removeUnfinishedFile().
void removeUnfinishedPicture(const QString &appFolder);

/// Deletes the pictures of other extensions that a newly written one replaces. Files that are no pictures
/// stay.
void deleteReplacedPictures(const QString &appFolder, qint64 coinId);

/// Deletes a coin's picture for good, also through a power cut. Answers whether that succeeded.
bool deletePicture(const QString &file);

/// Renames the files that already lie there under the key of a coin that is new: they are not this coin's.
/// What cannot be renamed is told to the user.
void setAsideStrayPictures(const SharedState &shared, qint64 newCoinId);

} // namespace obelmark
