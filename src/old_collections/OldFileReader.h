// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "old_collections/OldFile.h"

namespace obelmark {

/// Tells \a visitor all rows of the table \a wanted (in any letter case) if the file has it, deleted ones
/// passed over, then which other tables there are. Answers whether the file ends where a page of it ends:
/// when it does not, it has been cut off, and rows are missing.
///
/// The library that reads the file is made for files that are whole: on a damaged one it may end the process
/// or never come back. The program calls it by readOldFileApart(). \throws OldFileError
bool readOldFile(const QString &path, const QString &wanted, OldFileVisitor &visitor);

} // namespace obelmark
