#include "pictures/Metafile.h"

#include "pictures/ByteReader.h"
#include "pictures/EmfPlayer.h"
#include "pictures/PictureFormat.h"
#include "pictures/WmfPlayer.h"

namespace obelmark {

QImage drawMetafile(const QByteArray &bytes, PictureKind kind, QSize box)
{
    try {
        return kind == PictureKind::Wmf ? drawWmf(bytes, box) : drawEmf(bytes, box);
    } catch (const ByteReader::End &) {
        return {};
    }
}

} // namespace obelmark
