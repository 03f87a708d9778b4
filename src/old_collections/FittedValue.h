// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/ColumnType.h"
#include "runtime/Value.h"
#include <optional>

namespace obelmark {

/// The value as a column of that kind holds it. An older version of the program may have declared the column
/// otherwise. Nothing when the column cannot hold it.
std::optional<Value> fitted(const Value &value, const ColumnType &type);

} // namespace obelmark
