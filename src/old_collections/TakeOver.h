// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

class Desktop;

/// To be called with the program folder, whose name ends with "/", before its databases are opened. When
/// coin.mdb or rptspec.mdb there was written by an older version of the program, the user is told and asked,
/// and their contents are taken over into new files of those names; the old ones stay as coin-old.mdb and
/// rptspec-old.mdb (coin-old-2.mdb and so on when that name is taken). Answers whether the program can go on:
/// false when the user said No or the collection could not be taken over, which the user has been told; the
/// folder is as it was then.
///
/// A catalogue of report fields (rptspec.mdb) that cannot be taken over stays as it is and does not keep the
/// program from going on. Its rows are the user's: report definitions name fields by their numbers in it.
bool offerTakeOver(const QString &folder, Desktop &desktop);

} // namespace obelmark
