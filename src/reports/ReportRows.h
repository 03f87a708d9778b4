// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>

namespace obelmark {

class ForwardOnly;
struct SharedState;

enum class RowsRead { None, All, Cancelled };

/// Reads the rows of a report's query from the coin database, one at a time. When it takes longer than a
/// second the user sees how many rows there are so far and may cancel. \throws EngineError, and what \a row
/// throws
RowsRead forEachRow(SharedState &shared, const QString &sql,
                    const std::function<void(const ForwardOnly &)> &row);

} // namespace obelmark
