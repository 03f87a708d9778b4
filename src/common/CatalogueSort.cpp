// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/CatalogueSort.h"

#include "common/TextHelpers.h"

namespace obelmark {

QString MakeCatSort(const QString &catalogueNumber)
{
    constexpr int keyLength = 20;
    QString digits;
    for (const QChar c : GetField(catalogueNumber, u'-', 1)) {
        if (c >= u'0' && c <= u'9')
            digits += c;
    }
    return PadLeft(digits, keyLength).left(keyLength);
}

} // namespace obelmark
