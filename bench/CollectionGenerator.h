// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "CollectionTexts.h"

namespace obelmark::bench {

/// Makes a collection of that many coins from the delivered database's sources, the same one every time. Its
/// columns are filled as the program fills them, those that texts are ordered by included.
/// \throws std::runtime_error; the file then does not exist
void generateCollection(const QString &path, qint64 coins, Letters letters);

} // namespace obelmark::bench
