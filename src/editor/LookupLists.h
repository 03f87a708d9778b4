#pragma once

#include <QWidget>

namespace obelmark {

struct SharedState;

/// Marks all seven lists of the main window as stale.
void markAllLookupListsStale(SharedState &shared);

/// Rebuilds each of the seven lists in \a window whose reload flag is set, keeps its selected entry where it
/// still exists, and clears the flag. \throws NumberedError
void reloadStaleLookupLists(QWidget &window, SharedState &shared);

} // namespace obelmark
