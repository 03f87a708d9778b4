#include "editor/ProgramWindows.h"

namespace obelmark {

ProgramWindows::ProgramWindows(SharedState &) {}

ProgramWindows::~ProgramWindows() = default;

} // namespace obelmark
