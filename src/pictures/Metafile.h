#pragma once

#include <QByteArray>
#include <QImage>

namespace obelmark {

enum class PictureKind;

/// Draws a metafile (wmf or emf) on white, as large as fits \a box, in pixels. A null image when the file is
/// incomplete, says nothing of its size, or takes too long. What it asks for beyond the common records is
/// passed over.
///
/// The records of both kinds: [MS-WMF] and [MS-EMF] of the Microsoft Open Specifications.
QImage drawMetafile(const QByteArray &bytes, PictureKind kind, QSize box);

} // namespace obelmark
