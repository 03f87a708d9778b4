// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/Cases.h"

namespace obelmark {

using namespace Qt::StringLiterals;

/// Little-endian bytes of numbers.
template<class Number>
QByteArray bytesOf(std::initializer_list<Number> numbers)
{
    QByteArray bytes;
    for (const Number number : numbers)
        bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
    return bytes;
}

/// A bitmap of 2 by 2 pixels without file header: red and green above, blue and white below.
inline QByteArray smallBitmap()
{
    return bytesOf<qint32>({40, 2, 2, 1 | 24 << 16, 0, 16, 0, 0, 0, 0}) +
           QByteArray::fromHex("ff0000ffffff0000" // the rows from the bottom up, blue, green, red
                               "0000ff00ff000000");
}

/// The bytes of a record's contents as data/Reading.txt writes them: numbers of 16 bits behind "w", of 32
/// bits behind "d", floating ones behind "f", bytes of digits behind "x"; "bitmap" is the small one.
inline QByteArray contents(const QString &text, char kind)
{
    QByteArray bytes;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (word == u"bitmap")
            bytes += smallBitmap();
        else if (word == u"w" || word == u"d" || word == u"f" || word == u"x")
            kind = word[0].toLatin1();
        else if (kind == 'x')
            bytes += QByteArray::fromHex(word.toLatin1());
        else if (kind == 'f')
            bytes += bytesOf<float>({word.toFloat()});
        else if (kind == 'w')
            bytes += bytesOf<quint16>({quint16(word.toInt(nullptr, 0))});
        else
            bytes += bytesOf<quint32>({quint32(word.toLongLong(nullptr, 0))});
    }
    return bytes;
}

/// Records, each its number and its contents.
inline QByteArray wmfRecords(const QStringList &lines)
{
    QByteArray records;
    for (const QString &line : lines) {
        const QByteArray inside = contents(line.section(u' ', 1), 'w');
        records += bytesOf<quint32>({quint32(inside.size() / 2 + 3)}) +
                   bytesOf<quint16>({quint16(line.section(u' ', 0, 0).toInt(nullptr, 16))}) + inside;
    }
    return records;
}

inline QByteArray emfRecords(const QStringList &lines)
{
    QByteArray records;
    for (const QString &line : lines) {
        const QByteArray inside = contents(line.trimmed().section(u' ', 1), 'd');
        const quint32 number = line.trimmed().section(u' ', 0, 0).toUInt();
        records += bytesOf<quint32>({number, quint32(inside.size() + 8)}) + inside;
    }
    return records;
}

inline QByteArray wmfSample(bool placeable)
{
    const QByteArray records = wmfRecords(cases::linesOf(u"Reading"_s, u"wmf"_s));
    const QByteArray header = bytesOf<quint16>({1, 9, 0x300}) +
                              bytesOf<quint32>({quint32(records.size() / 2 + 9)}) + bytesOf<quint16>({5}) +
                              bytesOf<quint32>({100}) + bytesOf<quint16>({0});
    return (placeable ? contents(u"d 0x9AC6CDD7 w 0 0 0 400 200 1440 0 0 0"_s, 'w') : QByteArray()) + header +
           records;
}

/// A file of these records, 400 by 200 units on 800 by 400 pixels of a device with ten to the millimetre.
inline QByteArray emfFile(const QStringList &drawing)
{
    const QByteArray records = emfRecords(QStringList{u"17 8"_s, u"9 400 200"_s, u"11 800 400"_s} + drawing +
                                          QStringList{u"14 0 16 20"_s});
    return emfRecords(
               {u"1 0 0 799 399 0 0 8000 4000 0x464D4520 0x10000 %1 24 4 0 0 0 1000 1000 100 100"_s.arg(
                   records.size() + 88)}) +
           records;
}

} // namespace obelmark
