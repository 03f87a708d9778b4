// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>

namespace obelmark {

/// These draw a metafile on white, as large as fits \a box, in pixels. A null image when the file is
/// incomplete, says nothing of its size, or takes too long. What it asks for beyond the common records is
/// passed over.
///
/// The records: [MS-WMF] and [MS-EMF] of the Microsoft Open Specifications; their names and numbers are those
/// of WmfRecords.h and EmfRecords.h.

/// The 16-bit kind.
QImage drawWmf(const QByteArray &bytes, QSize box);
/// The enhanced kind.
QImage drawEmf(const QByteArray &bytes, QSize box);

} // namespace obelmark
