// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace SQLite {
class Database;
}

namespace obelmark {

class Schema;

/// Looks in an instant for damage that the library does not notice before it has written over what it takes
/// for free: a header that does not go with the file, and rows whose number is beyond a counter's 32 bits.
/// The connection must hold the file's lock. \throws SQLite::Exception (CORRUPT)
void requireSound(SQLite::Database &connection, const Schema &schema);

/// Whether a file can only be read because its header names a version that does not exist.
bool hasImpossibleVersion(const QString &path);

} // namespace obelmark
