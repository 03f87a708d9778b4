// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/OldValues.h"

#include "old_collections/OldText.h"
#include <QByteArray>
#include <QtEndian>
#include <cmath>

namespace obelmark {

namespace {

/// The bits of an offset on a page; the others are marks.
constexpr int offsetBits = 0x1fff;

QByteArrayView bytesOf(const MdbField &field)
{
    return QByteArrayView(static_cast<const char *>(field.value), field.siz);
}

template<class Number>
std::optional<Number> numberIn(const MdbField &field)
{
    if (field.siz != int(sizeof(Number)))
        return {};
    return qFromLittleEndian<Number>(field.value);
}

template<class Number, class Held = qint64>
std::optional<Value> wholeNumber(const MdbField &field)
{
    const auto number = numberIn<Number>(field);
    return number ? std::optional<Value>(Held(*number)) : std::nullopt;
}

template<class Number>
std::optional<Value> floatingNumber(const MdbField &field)
{
    const auto number = numberIn<Number>(field);
    return number && std::isfinite(*number) ? std::optional<Value>(double(*number)) : std::nullopt;
}

std::optional<Value> money(const MdbField &field)
{
    const auto count = numberIn<qint64>(field);
    return count ? std::optional<Value>(Money::fromTenThousandths(*count)) : std::nullopt;
}

std::optional<Value> date(const MdbField &field)
{
    const auto serial = numberIn<double>(field);
    if (!serial || !std::isfinite(*serial) || isoText(Date{*serial}).isEmpty())
        return {};
    return Value(Date{*serial});
}

std::optional<Value> text(MdbHandle &file, QByteArrayView bytes)
{
    if (!IS_JET3((&file))) {
        const auto decoded = decodeOldText(bytes);
        return decoded ? std::optional<Value>(*decoded) : std::nullopt;
    }
    // The code page that the file names: the library knows them all.
    QByteArray utf8(bytes.size() * 4 + 1, Qt::Uninitialized);
    const int length =
        mdb_unicode2ascii(&file, bytes.data(), size_t(bytes.size()), utf8.data(), size_t(utf8.size()));
    return Value(QString::fromUtf8(utf8.constData(), length));
}

/// A piece of a long text, which lies as a row on a page of its own.
std::optional<QByteArrayView> pieceAt(MdbHandle &file, qint64 sizeOfFile, quint32 pageAndRow)
{
    void *page = nullptr;
    int offset = 0;
    size_t size = 0;
    if (mdb_find_pg_row(&file, int(pageAndRow), &page, &offset, &size) != 0 ||
        endInFile(file, int(pageAndRow >> 8), offset & offsetBits, qint64(size)) > sizeOfFile)
        return {};
    return QByteArrayView(static_cast<const char *>(page) + (offset & offsetBits), qsizetype(size));
}

/// A long text is described by a head in the row: its length and where it lies.
std::optional<QByteArray> longBytes(MdbHandle &file, qint64 sizeOfFile, QByteArrayView head)
{
    constexpr quint32 isInRow = 0x80000000;
    constexpr quint32 isInOnePiece = 0x40000000;
    constexpr qsizetype linkSize = 4;
    if (head.size() < MDB_MEMO_OVERHEAD)
        return {};
    const auto lengthAndKind = qFromLittleEndian<quint32>(head.data());
    const qsizetype length = lengthAndKind & ~(isInRow | isInOnePiece);
    auto next = qFromLittleEndian<quint32>(head.data() + linkSize);
    const auto startOf = [&](QByteArrayView bytes) {
        return bytes.size() < length ? std::nullopt : std::optional(bytes.first(length).toByteArray());
    };
    if (lengthAndKind & isInRow)
        return startOf(head.sliced(MDB_MEMO_OVERHEAD));
    if (lengthAndKind & isInOnePiece) {
        const auto piece = pieceAt(file, sizeOfFile, next);
        return piece ? startOf(*piece) : std::nullopt;
    }
    QByteArray bytes;
    // Every round but the last has to bring something, so a chain that bites its tail ends too.
    while (next != 0) {
        const auto piece = pieceAt(file, sizeOfFile, next);
        if (!piece || piece->size() <= linkSize || bytes.size() + piece->size() - linkSize > length)
            return {};
        next = qFromLittleEndian<quint32>(piece->data());
        bytes += piece->sliced(linkSize);
    }
    return bytes.size() == length ? std::optional(bytes) : std::nullopt;
}

} // namespace

std::optional<Value> oldValue(MdbHandle &file, qint64 size, const MdbColumn &column, const MdbField &field)
{
    if (column.col_type == MDB_BOOL) // has no place but its null flag
        return Value(!field.is_null);
    if (field.is_null)
        return Value();
    if (field.siz < 0) // of a row whose list of places is garbled
        return {};
    switch (column.col_type) {
    case MDB_BYTE:
        return wholeNumber<quint8>(field);
    case MDB_INT:
        return wholeNumber<qint16>(field);
    case MDB_LONGINT:
        return wholeNumber<qint32>(field);
    case MDB_FLOAT:
        return floatingNumber<float>(field);
    case MDB_DOUBLE:
        return floatingNumber<double>(field);
    case MDB_MONEY:
        return money(field);
    case MDB_DATETIME:
        return date(field);
    case MDB_TEXT:
        return text(file, bytesOf(field));
    case MDB_MEMO: {
        const auto bytes = longBytes(file, size, bytesOf(field));
        return bytes ? text(file, *bytes) : std::nullopt;
    }
    default:
        return {}; // pictures and the like
    }
}

} // namespace obelmark
