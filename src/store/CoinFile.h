// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/MenuChoices.h"
#include "engine/care/Repair.h"
#include "engine/rows/Database.h"
#include "engine/rows/Dynaset.h"
#include <QString>
#include <memory>

namespace obelmark {

struct SharedState;

/// Opens the coin database exclusively, makes it one of the newest version, and fills the catalogue sort keys
/// that other tools have left empty.
/// \throws what Database::open() throws
std::unique_ptr<Database> openCoinDatabase(const QString &path, const FileProgress &progress = {});

/// Repairs the closed coin database, whose tables and columns are known. \throws what repairDatabase() throws
RepairReport repairCoinFile(const QString &path, const FileProgress &progress = {});

/// All coins in one of the three sort orders.
std::unique_ptr<Dynaset> openCoins(Database &database, CoinOrder order = CoinOrder::Description);

/// Opens the coin database at DatabasePath again after it has been closed in the middle of the work.
void reopenCoinDatabase(SharedState &shared, bool withRecordset);

/// The shared database and recordset as objects in use. \throws ObjectNotSet (91) when there is none
Database &coinDatabase(SharedState &shared);
Dynaset &coinRecordset(SharedState &shared);

} // namespace obelmark
