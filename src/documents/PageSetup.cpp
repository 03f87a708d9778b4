// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PageSetup.h"

#include <algorithm>

namespace obelmark {

/// As the Unicode locale data (CLDR, territoryInfo paperSize) have it.
static constexpr QLocale::Territory letterTerritories[] = {
    QLocale::Belize,      QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
    QLocale::ElSalvador,  QLocale::Guatemala,  QLocale::Mexico,       QLocale::Nicaragua, QLocale::Panama,
    QLocale::Philippines, QLocale::PuertoRico, QLocale::UnitedStates, QLocale::Venezuela,
};

QSizeF PageSetup::size() const
{
    const QSizeF upright = QSizeF(paper.sizePoints()) * twipsPerPoint;
    return landscape ? upright.transposed() : upright;
}

QPageSize usualPaper(const QLocale &locale)
{
    const bool isLetter =
        std::ranges::find(letterTerritories, locale.territory()) != std::end(letterTerritories);
    return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

} // namespace obelmark
