// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/Repair.h"

namespace obelmark {

class SalvageFile;

/// Fills the new file \a newPath with all that can be read of \a damaged and checks it.
/// \throws DatabaseDamaged or UnrecognizedFormat when the key table cannot be read; SQLite::Exception when
/// the
///         file cannot be written
QList<RepairReport::Table> copyReadable(SalvageFile &damaged, const QString &newPath, const RepairPlan &plan,
                                        const FileProgress &progress);

} // namespace obelmark
