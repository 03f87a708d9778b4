#pragma once

#include <QByteArray>
#include <initializer_list>

namespace obelmark {

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

namespace wmf {

inline QByteArray record(quint16 function, const QByteArray &contents = {})
{
    return bytesOf<quint32>({quint32(contents.size() / 2 + 3)}) + bytesOf<quint16>({function}) + contents;
}

inline QByteArray record(quint16 function, std::initializer_list<qint16> numbers)
{
    return record(function, bytesOf<qint16>(numbers));
}

/// 400 by 200 units on white, in the upper left quarter a red rectangle with a thick blue border, in the
/// lower left one a green ellipse, a bitmap on the right; a text, a clipped figure and shapes with everything
/// that can be counted wrongly.
inline QByteArray sample(bool placeable)
{
    const QByteArray records =
        record(0x0103, {8}) + record(0x020B, {0, 0}) + record(0x020C, {200, 400}) +
        record(0x02FA, bytesOf<qint16>({0, 10, 0}) + bytesOf<quint32>({0xFF0000})) + record(0x012D, {0}) +
        record(0x02FC, bytesOf<quint16>({0}) + bytesOf<quint32>({0x0000FF}) + bytesOf<quint16>({0})) +
        record(0x012D, {1}) + record(0x041B, {90, 190, 10, 10}) + record(0x001E) +
        record(0x02FC, bytesOf<quint16>({0}) + bytesOf<quint32>({0x00FF00}) + bytesOf<quint16>({0})) +
        record(0x012D, {2}) + record(0x0418, {190, 190, 110, 10}) + record(0x0127, {-1}) +
        record(0x0F43, bytesOf<quint32>({0x00CC0020}) + bytesOf<qint16>({0, 2, 2, 0, 0, 200, 200, 0, 200}) +
                           smallBitmap()) +
        record(0x0538, {2, 3, 3, 40, 40, 45, 40, 42, 45, 50, 40, 55, 40, 52, 45}) +
        record(0x0324, {3, 60, 40, 65, 40, 62, 45}) + record(0x0325, {2, 60, 60, 65, 60}) +
        record(0x081A, {50, 60, 60, 50, 70, 70, 50, 50}) +
        record(0x02FB, bytesOf<qint16>({12, 0, 0, 0, 400, 0, 0, 0, 0}) + QByteArray("Serif\0", 6)) +
        record(0x012D, {3}) +
        record(0x0521, bytesOf<qint16>({3}) + QByteArray("abc\0", 4) + bytesOf<qint16>({20, 20})) +
        record(0x0A32, bytesOf<qint16>({20, 60, 3, 0}) + QByteArray("abc\0", 4)) + record(0x01F0, {1}) +
        record(0x0416, {50, 50, 0, 0}) + record(0x0214, {1, 1}) + record(0x0213, {9, 9}) + record(0x0000);
    const QByteArray header = bytesOf<quint16>({1, 9, 0x300}) +
                              bytesOf<quint32>({quint32(records.size() / 2 + 9)}) + bytesOf<quint16>({5}) +
                              bytesOf<quint32>({100}) + bytesOf<quint16>({0});
    const QByteArray frame =
        bytesOf<quint32>({0x9AC6CDD7}) + bytesOf<qint16>({0, 0, 0, 400, 200, 1440, 0, 0, 0});
    return (placeable ? frame : QByteArray()) + header + records;
}

} // namespace wmf

namespace emf {

inline QByteArray record(quint32 type, const QByteArray &contents = {})
{
    return bytesOf<quint32>({type, quint32(contents.size() + 8)}) + contents;
}

inline QByteArray record(quint32 type, std::initializer_list<qint32> numbers)
{
    return record(type, bytesOf<qint32>(numbers));
}

/// A file of these records, 400 by 200 units on 800 by 400 pixels of a device with ten to the millimetre.
inline QByteArray file(const QByteArray &drawing)
{
    const QByteArray records =
        record(17, {8}) + record(9, {400, 200}) + record(11, {800, 400}) + drawing + record(14, {0, 16, 20});
    const QByteArray header =
        record(1, bytesOf<qint32>(
                      {0,  0, 799, 399, 0, 0,    8000, 4000, 0x464D4520, 0x10000, qint32(records.size() + 88),
                       24, 4, 0,   0,   0, 1000, 1000, 100,  100}));
    return header + records;
}

/// The same picture as a metafile of the later kind.
inline QByteArray sample()
{
    const QByteArray text = QByteArray("a\0b\0", 4);
    return file(
        record(38, {1, 0, 10, 0, 0xFF0000}) + record(37, {1}) + record(39, {2, 0, 0x0000FF, 0}) +
        record(37, {2}) + record(43, {10, 10, 190, 90}) + record(33) + record(39, {3, 0, 0x00FF00, 0}) +
        record(37, {3}) + record(42, {10, 110, 190, 190}) + record(34, {-1}) +
        record(81,
               bytesOf<qint32>({0, 0, 0, 0, 200, 0, 0, 0, 2, 2, 80, 40, 120, 16, 0, 0x00CC0020, 200, 200}) +
                   smallBitmap()) +
        record(3, {0, 0, 0, 0, 3, 40, 40, 45, 40, 42, 45}) +
        record(86, bytesOf<qint32>({0, 0, 0, 0, 3}) + bytesOf<qint16>({40, 40, 45, 40, 42, 45})) +
        record(8, {0, 0, 0, 0, 2, 4, 2, 2, 50, 50, 51, 51, 52, 52, 53, 50}) +
        record(2, {0, 0, 0, 0, 4, 40, 40, 45, 40, 42, 45, 42, 42}) + record(59) + record(27, {60, 60}) +
        record(54, {65, 65}) + record(61) + record(60) + record(63, {0, 0, 9, 9}) +
        record(47, {50, 50, 70, 70, 60, 50, 50, 60}) +
        record(84, bytesOf<qint32>({0, 0, 0, 0, 1, 0, 0, 20, 20, 2, 76, 0, 0, 0, 0, 0, 80}) + text) +
        record(30, {0, 0, 50, 50}) + record(40, {2}));
}

} // namespace emf

} // namespace obelmark
