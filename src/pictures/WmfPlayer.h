#pragma once

#include <QByteArray>
#include <QImage>

namespace obelmark {

/// drawMetafile() for the 16-bit kind. \throws ByteReader::End when the file is incomplete
QImage drawWmf(const QByteArray &bytes, QSize box);

} // namespace obelmark
