// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <functional>

namespace obelmark {

enum class FileStage { Copying, Compacting, Checking, Ordering, Rescuing };

/// Told every few milliseconds how far the work on a whole database file is; a total of 0 means that nobody
/// knows it. Answers whether the work is to go on.
using FileProgress = std::function<bool(FileStage stage, qint64 done, qint64 total)>;

/// Raised when a FileProgress has answered that the work is not to go on.
struct FileWorkStopped
{
};

/// Tells \a progress, when there is one, and stops the work when asked to.
inline void tell(const FileProgress &progress, FileStage stage, qint64 done = 0, qint64 total = 0)
{
    if (progress && !progress(stage, done, total))
        throw FileWorkStopped();
}

} // namespace obelmark
