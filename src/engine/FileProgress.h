#pragma once

#include <QtGlobal>
#include <functional>

namespace obelmark {

enum class FileStage { Copying, Compacting, Checking };

/// Told every few milliseconds how far the work on a whole database file is; a total of 0 means that nobody
/// knows it. Answers whether the work is to go on.
using FileProgress = std::function<bool(FileStage stage, qint64 done, qint64 total)>;

/// Raised when a FileProgress has answered that the work is not to go on.
struct FileWorkStopped
{
};

} // namespace obelmark
