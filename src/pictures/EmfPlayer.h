#pragma once

#include <QByteArray>
#include <QImage>

namespace obelmark {

/// drawMetafile() for the enhanced kind. \throws ByteReader::End when the file is incomplete
QImage drawEmf(const QByteArray &bytes, QSize box);

} // namespace obelmark
