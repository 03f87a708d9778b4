// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/cDIBSection.h"

#include <QImage>
#include <cstring>

namespace obelmark {

bool cDIBSection::CreateFromPicture(const QImage &picture)
{
    m_width = picture.width();
    m_height = picture.height();
    m_bits.assign(size_t(BytesPerScanLine()) * size_t(m_height), 0);
    // In bands: a large picture is not held twice.
    constexpr int band = 256;
    for (int top = 0; top < m_height; top += band) {
        const int rows = std::min(band, m_height - top);
        const QImage part = picture.copy(0, top, m_width, rows).convertToFormat(QImage::Format_BGR888);
        for (int row = 0; row < rows; ++row) {
            uchar *line = m_bits.data() + size_t(BytesPerScanLine()) * size_t(m_height - 1 - top - row);
            std::memcpy(line, part.constScanLine(row), size_t(m_width) * 3);
        }
    }
    return m_width > 0 && m_height > 0;
}

} // namespace obelmark
