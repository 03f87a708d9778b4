// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QTabWidget;

namespace obelmark {

/// Lets Ctrl+Tab and Ctrl+Page Down, with Shift or with Page Up backwards, turn the pages from anywhere in
/// the window. By itself a tab control hears these keys only from its own pages, and drop-down lists there
/// keep them. The focus goes to the page.
void addPageKeys(QTabWidget &tabs);

} // namespace obelmark
