#pragma once

namespace obelmark {

struct SharedState;

/// The windows of which the program has one each and that outlive the main window: a backup or a packing
/// closes the main window and opens another, while these stay.
struct ProgramWindows
{
    explicit ProgramWindows(SharedState &shared);
    ~ProgramWindows();
    ProgramWindows(const ProgramWindows &) = delete;
    ProgramWindows &operator=(const ProgramWindows &) = delete;
};

} // namespace obelmark
