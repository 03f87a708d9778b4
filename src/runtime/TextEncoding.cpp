// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/TextEncoding.h"

#include <QStringDecoder>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// The bytes from 0x80 to 0x9F; those that stand for nothing are read as in Latin-1, of which the rest is.
constexpr char16_t windows1252[] =
    u"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    u"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";

QString fromWindows1252(const QByteArray &bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &letter : text) {
        if (letter >= u'\x80' && letter <= u'\x9F')
            letter = windows1252[letter.unicode() - 0x80];
    }
    return text;
}

} // namespace

QByteArray inFileEncoding(QStringView text)
{
    return text.toUtf8();
}

QByteArray toFileText(const QString &text)
{
    return inFileEncoding(withCrLf(text));
}

QString fromFileText(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return withLf(decoder.hasError() ? fromWindows1252(bytes) : text);
}

QString withCrLf(const QString &text)
{
    return withLf(text).replace(u'\n', "\r\n"_L1);
}

QString withLf(const QString &text)
{
    return QString(text).replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
}

} // namespace obelmark
