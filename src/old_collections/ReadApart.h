// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "old_collections/OldFile.h"

namespace obelmark {

/// As readOldFile(), but the file is read in a process of its own, bounded in time and memory: whatever a
/// damaged file does to the library, the program goes on. Answers whether the file was read to its end; if
/// not, the visitor has been told what came before. \throws OldFileError
bool readOldFileApart(const QString &path, const QString &wanted, OldFileVisitor &visitor);

} // namespace obelmark
