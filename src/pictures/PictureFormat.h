// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

namespace obelmark {

/// What a picture file is, by its first bytes; never by its name.
enum class PictureKind { None, Raster, Jpeg, Wmf, Emf };

struct PictureFormat
{
    PictureKind kind = PictureKind::None;
    /// Qt's name of the format; empty for a metafile.
    QByteArray name;
};

PictureFormat formatOf(QByteArrayView bytes);

/// Whether a file goes as far as its own headers say. For the formats whose readers make up what is missing
/// (bmp, dib, gif, jpg); true for all others.
bool isComplete(const PictureFormat &format, QByteArrayView bytes);

} // namespace obelmark
