// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Schema.h"
#include <SQLiteCpp/Statement.h>

namespace obelmark {

/// The columns of a query's result as a table: a column of a table keeps its declared kind, also through
/// joins and other names; an expression has none.
TableSchema resultColumns(const SQLite::Statement &statement, const QString &name);

} // namespace obelmark
