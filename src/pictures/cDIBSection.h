// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <vector>

class QImage;

namespace obelmark {

/// A device-independent bitmap: 24 bits a pixel in the order blue, green, red, uncompressed, rows from the
/// bottom up, each padded to a multiple of four bytes.
class cDIBSection
{
public:
    /// Fills the section from a picture; answers false, leaving it empty, for a picture without pixels.
    bool CreateFromPicture(const QImage &picture);

    int Width() const { return m_width; }   ///< pixels
    int Height() const { return m_height; } ///< pixels
    int BytesPerScanLine() const { return (m_width * 3 + 3) / 4 * 4; }
    /// The first byte of the lowest row.
    const uchar *DIBSectionBitsPtr() const { return m_bits.data(); }

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<uchar> m_bits;
};

} // namespace obelmark
