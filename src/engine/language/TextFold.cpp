// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/TextFold.h"
#include "engine/language/FoldTable.h"
#include <QList>

namespace obelmark {

QString foldText(QStringView text)
{
    FoldTable &table = FoldTable::ofOrder();
    QString folded;
    folded.reserve(text.size());
    for (const uint character : text.toUcs4()) {
        table.fold(character, [&folded](char32_t c) {
            if (QChar::requiresSurrogates(c))
                folded += QChar(QChar::highSurrogate(c));
            folded += QChar(QChar::requiresSurrogates(c) ? QChar::lowSurrogate(c) : char16_t(c));
        });
    }
    return folded;
}

} // namespace obelmark
