// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <string>

namespace obelmark {

/// Adds a value to the end of a sort key: keys made of the same kinds of values stand in the order of the
/// values when they are compared byte by byte. Null stands first; \a descending turns the order round.
void appendToSortKey(std::string &key, const Value &value, bool descending);

} // namespace obelmark
