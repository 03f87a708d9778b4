#pragma once

#include "desktop/Desktop.h"

namespace obelmark {

/// The mounted volumes that a user would call drives, removable ones first.
QList<Drive> mountedDrives();

} // namespace obelmark
