// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "CollectionTexts.h"
#include <string>

namespace obelmark::bench {

constexpr qint64 thousand = 1000;
constexpr qint64 million = 1000 * thousand;

/// Such as "100 thousand", "1 million".
std::string sizeName(qint64 coins);

/// The coin.mdb of a program folder with that many coins. Made on the first use, and when the delivered
/// tables have changed, and kept in the folder that OBELMARK_BENCH_DATA names, else in the build folder.
QString collection(qint64 coins, Letters letters = Letters::Mixed);

/// A copy of it for the side that works with plain SQLite: the program keeps its file locked. Kept as well.
QString twinOf(const QString &collection);

/// Another copy, in a program folder of that name, to be written to; made anew each time.
QString scratchCopy(const QString &collection, const QString &name);

/// \throws std::runtime_error when the collections lie in memory: nothing true can be said about writing then
void requireRealDisk();

} // namespace obelmark::bench
