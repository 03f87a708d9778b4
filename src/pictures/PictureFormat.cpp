// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/PictureFormat.h"

#include "runtime/ByteReader.h"

namespace obelmark {

namespace {

struct Signature
{
    qsizetype offset;
    QByteArrayView bytes;
    PictureKind kind;
    const char *name;
};

constexpr Signature signatures[] = {
    {0, "\xFF\xD8\xFF", PictureKind::Jpeg, "jpg"},
    {0, "\x89PNG\r\n\x1A\n", PictureKind::Raster, "png"},
    {0, "BM", PictureKind::Raster, "bmp"},
    {0, "GIF8", PictureKind::Raster, "gif"},
    {8, "WEBP", PictureKind::Raster, "webp"},
    {0, QByteArrayView("II*\0", 4), PictureKind::Raster, "tiff"},
    {0, QByteArrayView("MM\0*", 4), PictureKind::Raster, "tiff"},
    {0, QByteArrayView("\0\0\1\0", 4), PictureKind::Raster, "ico"},
    {0, QByteArrayView("\0\0\2\0", 4), PictureKind::Raster, "cur"},
    {40, " EMF", PictureKind::Emf, ""},
    {0, "\xD7\xCD\xC6\x9A", PictureKind::Wmf, ""},
    {0, QByteArrayView("\1\0\t\0\0", 5), PictureKind::Wmf, ""},
    {0, QByteArrayView("\2\0\t\0\0", 5), PictureKind::Wmf, ""},
    // A bitmap without the header of a file begins with the size of its own.
    {0, QByteArrayView("\x28\0\0\0", 4), PictureKind::Raster, "dib"},
    {0, QByteArrayView("\x0C\0\0\0", 4), PictureKind::Raster, "dib"},
    {0, QByteArrayView("\x6C\0\0\0", 4), PictureKind::Raster, "dib"},
    {0, QByteArrayView("\x7C\0\0\0", 4), PictureKind::Raster, "dib"},
};

constexpr quint32 uncompressed = 0, bitFields = 3;

/// \a pixels is where they begin, 0 when they follow header and colours.
bool isCompleteBitmap(ByteReader reader, qint64 pixels)
{
    const qint64 start = reader.position();
    const auto headerSize = reader.read<quint32>();
    if (headerSize == 12)
        return true; // of OS/2; its reader refuses a short one
    const qint64 width = reader.read<qint32>(), height = qAbs(qint64(reader.read<qint32>()));
    reader.skip(2);
    const int bits = reader.read<quint16>();
    const auto compression = reader.read<quint32>();
    const qint64 declared = reader.read<quint32>();
    reader.skip(8);
    const qint64 colours = reader.read<quint32>();
    if (width <= 0 || height == 0 || height > INT_MAX)
        return false;
    if (pixels == 0) {
        const qint64 palette = bits <= 8 ? (colours ? colours : 1 << bits) : 0;
        const qint64 masks = compression == bitFields && headerSize == 40 ? 3 : 0;
        pixels = start + headerSize + 4 * (palette + masks);
    }
    const bool plain = compression == uncompressed || compression == bitFields;
    const qint64 size = plain ? (width * bits + 31) / 32 * 4 * height : declared;
    return pixels + size <= reader.position() + reader.left();
}

void skipSubBlocks(ByteReader &reader)
{
    while (const auto size = reader.read<quint8>())
        reader.skip(size);
}

/// As far as the end of the first picture: the others of an animation are not shown.
bool isCompleteGif(ByteReader reader)
{
    const auto skipColours = [&](quint8 flags) {
        if (flags & 0x80)
            reader.skip(3 * (2 << (flags & 7)));
    };
    reader.skip(10);
    const auto flags = reader.read<quint8>();
    reader.skip(2);
    skipColours(flags);
    for (;;) {
        const auto block = reader.read<quint8>();
        reader.skip(block == ',' ? 8 : 1);
        if (block == ',') {
            skipColours(reader.read<quint8>());
            reader.skip(1);
        } else if (block != '!') {
            return false;
        }
        skipSubBlocks(reader);
        if (block == ',')
            return true;
    }
}

/// From marker to marker; within the coded picture to the next FF that is not followed by 0 or a restart.
bool isCompleteJpeg(ByteReader reader)
{
    const auto isStandAlone = [](quint8 marker) { return marker >= 0xD0 && marker <= 0xD8; };
    reader.skip(2);
    for (;;) {
        if (reader.read<quint8>() != 0xFF)
            continue;
        auto marker = reader.read<quint8>();
        while (marker == 0xFF)
            marker = reader.read<quint8>();
        if (marker == 0xD9)
            return true;
        if (marker == 0 || isStandAlone(marker))
            continue;
        const int high = reader.read<quint8>(), size = high * 256 + reader.read<quint8>();
        reader.skip(size - 2);
    }
}

} // namespace

PictureFormat formatOf(QByteArrayView bytes)
{
    for (const Signature &signature : signatures) {
        if (bytes.size() >= signature.offset + signature.bytes.size() &&
            bytes.sliced(signature.offset, signature.bytes.size()) == signature.bytes)
            return {signature.kind, signature.name};
    }
    return {};
}

bool isComplete(const PictureFormat &format, QByteArrayView bytes)
{
    try {
        if (format.kind == PictureKind::Jpeg)
            return isCompleteJpeg(ByteReader(bytes));
        if (format.name == "gif")
            return isCompleteGif(ByteReader(bytes));
        if (format.name == "dib")
            return isCompleteBitmap(ByteReader(bytes), 0);
        if (format.name == "bmp") {
            const auto pixels = ByteReader(bytes, 10).read<quint32>();
            return isCompleteBitmap(ByteReader(bytes, 14), pixels);
        }
        return true;
    } catch (const ByteReader::End &) {
        return false;
    }
}

} // namespace obelmark
