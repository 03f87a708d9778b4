// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/Browsing.h"

#include "desktop/Desktop.h"
#include "engine/rows/Dynaset.h"

namespace obelmark {

bool browse(Dynaset &rows, Move move, Desktop &desktop)
{
    if (rows.isEmpty())
        return false;
    switch (move) {
    case Move::First:
        rows.moveFirst();
        break;
    case Move::Last:
        rows.moveLast();
        break;
    case Move::Next:
        // A set that was empty when it was last looked at stands behind its end.
        if (!rows.eof())
            rows.moveNext();
        if (rows.eof()) {
            desktop.beep();
            rows.moveLast();
        }
        break;
    case Move::Previous:
        if (!rows.bof())
            rows.movePrevious();
        if (rows.bof()) {
            desktop.beep();
            rows.moveFirst();
        }
        break;
    }
    return true;
}

bool moveToNeighbour(Dynaset &rows)
{
    if (rows.isEmpty())
        return false;
    if (!rows.eof())
        rows.moveNext();
    if (rows.eof())
        rows.movePrevious();
    return true;
}

} // namespace obelmark
