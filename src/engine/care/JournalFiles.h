// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLatin1StringView>
#include <QString>
#include <array>

namespace obelmark {

/// Endings of the files that may lie beside a database file and tell how to finish or undo a write. They must
/// never come to lie beside another file of that name.
inline constexpr std::array journalSuffixes{QLatin1StringView("-journal"), QLatin1StringView("-wal"),
                                            QLatin1StringView("-shm")};

/// Lets the library undo or finish what an interrupted write has left, as at every opening. Damage is passed
/// over. \throws FileInUse
void settleJournal(const QString &path);

/// Removes what is left beside the file; it is not needed once the journal has been settled.
void removeJournals(const QString &path);

} // namespace obelmark
