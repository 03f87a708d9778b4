// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"
#include <QString>

namespace obelmark {

struct SharedState;

/// Compacts the coin database, which must be closed. "Coinnew.mdb" beside it is the compacted copy, flushed
/// and checked; then the database becomes "Coindb.bak", in place of an earlier one, and the copy the
/// database. When anything fails the database is as it was. \throws DiskFull, PathFileAccess, FileInUse,
/// DatabaseDamaged and others; FileWorkStopped
void replaceByCompacted(const QString &databasePath, const FileProgress &progress);

/// The same for the program's database, with the user told how far it is, or what failed.
void packDatabase(SharedState &shared);

/// At start-up: a packing that was cut off between its last two steps has left no database but both other
/// files. It is finished when the compacted copy proves to be complete, and the user is told; else, and when
/// only "Coindb.bak" is there, the user is told where the collection lies.
void recoverDatabase(SharedState &shared);

} // namespace obelmark
