// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

namespace obelmark {

/// The operations at which a fault can be made to happen.
enum class FaultPoint { Open, Query, Update, Delete };

/// Called before the operation is carried out. Answers the SQLite result code that the operation is to fail
/// with (SQLITE_BUSY for a lock, SQLITE_FULL for a full disk), or 0 to let it go on. Only for trying out what
/// the program does when storage fails.
using FaultHook = std::function<int(FaultPoint)>;

} // namespace obelmark
