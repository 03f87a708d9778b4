// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// The name under which the new file for \a path is written.
QString nameForNew(const QString &path);

/// The name under which the old file at \a path is kept: "coin-old.mdb", or "coin-old-2.mdb" and so on when
/// that name is taken.
QString nameForOld(const QString &path);

/// Gives the old file at \a path its second name, then puts the finished file at \a newPath in its place.
/// Returns the second name.
///
/// At every instant there is a whole file at \a path, and the old contents have a name. When the machine
/// stops before the last step, the next start finds the old file and begins anew (and uses the second name it
/// has already); after it, the new file with the old one beside it. \throws NumberedError; \a path is as it
/// was then
QString exchangeFiles(const QString &path, const QString &newPath);

} // namespace obelmark
