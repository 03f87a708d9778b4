// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

struct SharedState;
namespace Ui {
class frmMain;
}

/// Marks all seven lists of the main window as stale.
void markAllLookupListsStale(SharedState &shared);

/// Rebuilds each of the seven lists of \a window whose reload flag is set, keeps its selected entry where it
/// still exists, and clears the flag. \throws NumberedError
void reloadStaleLookupLists(Ui::frmMain &window, SharedState &shared);

} // namespace obelmark
