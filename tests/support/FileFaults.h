// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

namespace obelmark {

enum class Fault { Killed, FailsOnce, FailsFromThenOn };

/// Runs \a work with the fault at its n-th change to files (writing, flushing, renaming, removing), counted
/// from 1; work that is to be killed in a process of its own. Answers whether it came to that change. The
/// test program has to be linked with FAULTS.
bool runWithFault(Fault fault, int change, const std::function<void()> &work);

/// Kills this process at its n-th change to files from now on: for windows, which no forked process can use.
void killAtChange(int change);

} // namespace obelmark
