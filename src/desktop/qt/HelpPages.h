// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The pages of the help window that stand in no help file, as HTML.
namespace obelmark::HelpPages {

/// How the help window is used.
QString usingHelp();
/// In place of a page that the help file does not have.
QString noSuchTopic(int topic);
QString noSuchPage(const QString &address);
/// In place of every page when there is no help file to read.
QString noHelpFile(const QString &path, const QString &problem);

} // namespace obelmark::HelpPages
