// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"
#include <QString>

namespace obelmark {

class Desktop;

/// Shows the user how far the work is for as long as it lives; Cancel, when \a cancellable, stops the work.
/// Work that never tells of itself costs nothing.
FileProgress shownProgress(Desktop &desktop, const QString &title, bool cancellable = true);

} // namespace obelmark
