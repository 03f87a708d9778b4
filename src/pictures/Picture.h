// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

namespace obelmark {

/// The number of the errors that reading a picture raises.
inline constexpr int invalidPicture = 481;

/// A picture from a file or from the clipboard, upright, opaque (what is transparent is white) and in the
/// colours of screens. A photograph is decoded only as large as it is asked for: to fit a window, it takes a
/// fraction of the time and memory of the whole.
class Picture
{
public:
    /// No picture.
    Picture() = default;
    /// None when the image is larger than any that is read.
    explicit Picture(const QImage &image);

    /// How large pictures are wanted, in pixels.
    struct Boxes
    {
        QSize preview;  ///< what the preview() of a photograph must at least cover
        QSize metafile; ///< what a metafile is drawn to fit: it has no pixels of its own
    };

    /// Reads bmp, dib, gif, jpg, png, tiff, webp, ico and cur (the largest in the file), wmf and emf, by
    /// their contents. \throws NumberedError invalidPicture for a file that cannot be read, is incomplete,
    /// too large or no picture; the description is a sentence for the user
    static Picture fromFile(const QString &path, const Boxes &boxes);

    bool isEmpty() const { return m_size.isEmpty(); }
    /// In pixels.
    QSize size() const { return m_size; }

    /// The picture, perhaps with fewer pixels.
    const QImage &preview() const { return m_preview; }
    /// The whole picture; a null image when it cannot be decoded after all.
    QImage whole() const;

private:
    static Picture fromJpeg(const QByteArray &bytes, QSize box);

    QSize m_size = {0, 0};
    QImage m_preview;
    mutable QImage m_whole; ///< null until it is asked for
    QByteArray m_jpeg;      ///< the file, when there is more in it than in the preview
};

} // namespace obelmark
