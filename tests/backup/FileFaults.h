#pragma once

#include <functional>

namespace obelmark {

enum class Fault { Killed, FailsOnce, FailsFromThenOn };

/// Runs \a work with the fault at its n-th change to files (writing, flushing, renaming, removing), counted
/// from 1; work that is to be killed in a process of its own. Answers whether it came to that change.
bool runWithFault(Fault fault, int change, const std::function<void()> &work);

} // namespace obelmark
