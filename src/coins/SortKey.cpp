// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/SortKey.h"

#include <bit>

namespace obelmark {

namespace {

constexpr quint64 signBit = quint64(1) << 63;

void appendNumber(std::string &key, quint64 ordered)
{
    for (int shift = 56; shift >= 0; shift -= 8)
        key += char(ordered >> shift & 0xFF);
}

quint64 ordered(qint64 number)
{
    return quint64(number) ^ signBit;
}

/// The bits of negative floating numbers run backwards.
quint64 ordered(double number)
{
    const auto bits = std::bit_cast<quint64>(number);
    return bits & signBit ? ~bits : bits | signBit;
}

/// Ends behind every text that it is the beginning of.
void appendText(std::string &key, const QString &text)
{
    for (const char byte : text.toUtf8()) {
        key += byte;
        if (byte == '\0')
            key += '\1';
    }
    key.append(2, '\0');
}

} // namespace

void appendToSortKey(std::string &key, const Value &value, bool descending)
{
    const size_t begin = key.size();
    key += value.isNull() ? '\0' : '\1';
    if (const auto *text = value.as<QString>())
        appendText(key, *text);
    else if (const auto *amount = value.as<Money>())
        appendNumber(key, ordered(amount->tenThousandths()));
    else if (const auto *date = value.as<Date>())
        appendNumber(key, ordered(date->serial));
    else if (const auto *number = value.as<double>())
        appendNumber(key, ordered(*number));
    else if (!value.isNull())
        appendNumber(key, ordered(value.toInt()));
    if (!descending)
        return;
    for (size_t i = begin; i < key.size(); ++i)
        key[i] = char(~key[i]);
}

} // namespace obelmark
