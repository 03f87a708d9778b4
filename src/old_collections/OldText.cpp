// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/OldText.h"

#include <QtEndian>

namespace obelmark {

std::optional<QString> decodeOldText(QByteArrayView bytes)
{
    const bool isPacked = bytes.startsWith("\xff\xfe");
    bool oneByte = isPacked;
    QString text;
    text.reserve(bytes.size());
    for (qsizetype at = isPacked ? 2 : 0; at < bytes.size();) {
        if (isPacked && bytes[at] == '\0') {
            oneByte = !oneByte;
            ++at;
        } else if (oneByte) {
            text += QLatin1Char(bytes[at]);
            ++at;
        } else if (at + 1 < bytes.size()) {
            text += QChar(qFromLittleEndian<char16_t>(bytes.data() + at));
            at += 2;
        } else {
            return {};
        }
    }
    return text;
}

} // namespace obelmark
