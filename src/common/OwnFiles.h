// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

struct SharedState;

/// Refuses the files that the program itself lives on as targets of reports and the like, by whatever way the
/// path leads there and whether they exist or not: the databases in the program's folder with their journals
/// and the copies that are kept of them, the field catalogue, the help file, the pictures.
/// \throws PermissionDenied, the description naming the file
void requireForeignFile(const QString &path, const SharedState &shared);

} // namespace obelmark
