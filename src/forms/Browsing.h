// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

class Desktop;
class Dynaset;

enum class Move { First, Previous, Next, Last };

/// Moves as the four navigation buttons of an editor window do: beyond an end it stays on the last row there
/// is, with a beep. Answers whether there is a row to show. \throws NumberedError
bool browse(Dynaset &rows, Move move, Desktop &desktop);

/// From a row that has been deleted to the one after it or, from the end, to the one before it. Answers
/// whether there is one. \throws NumberedError
bool moveToNeighbour(Dynaset &rows);

} // namespace obelmark
