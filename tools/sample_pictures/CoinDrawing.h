// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Motifs.h"
#include <QImage>

namespace obelmark {

enum class Metal { Silver, Gold, Copper, Brass };

/// One side of a coin.
struct CoinDrawing
{
    Metal metal = Metal::Silver;
    int corners = 0;     ///< 0 for a round coin
    int holeCorners = 0; ///< of its hole: -1 for a round one, 0 for none
    QString legend = {}; ///< around the top
    QString foot = {};   ///< around the foot
    QPainterPath motif = {};
};

/// The same picture on every machine that has the font.
QImage drawn(const CoinDrawing &coin);

} // namespace obelmark
