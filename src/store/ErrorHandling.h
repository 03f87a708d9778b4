// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/NumberedError.h"
#include <functional>

namespace obelmark {

struct SharedState;

/// What every error of the program comes to. By its number: a lock conflict raises LockRetryAgain (every
/// hundredth asks the user), a file in use elsewhere is passed over, a cancelled file dialog raises
/// FindCancelled, a damaged database file is repaired and opened again; everything else is told to the user
/// and ends the program.
void DbErrorHandler(SharedState &shared, const NumberedError &error);

/// An error as the user is told of it: the number, two blanks, the description.
QString numberAndText(const NumberedError &error);

/// Ends the program at once, without unloading a window. The database is let go of first, so that no journal
/// stays beside it; what has not been committed is not saved.
[[noreturn]] void endProgram(SharedState &shared);

/// Raised by attempt() after a database that was in use has been repaired or, because its file was taken
/// away, saved under another name: the recordsets on it are gone and CoinRecordset has been opened anew on
/// its first row, so the procedure under way cannot go on. Also raised when the user did not want it saved,
/// so that the rest of the procedure does not ask again; DatabaseRepairs has not grown then.
struct DatabaseRepaired
{
};

/// Runs one statement of a procedure. An error goes to DbErrorHandler(), or to meetLostFile() when the
/// database file has been taken away, and the caller goes on with its next statement. Answers whether the
/// statement was carried out.
bool attempt(SharedState &shared, const std::function<void()> &statement);

/// After work on the closed database as a whole has met damage: tells that with \a undone ("The database
/// could not be compacted"), asks whether it is to be repaired, and does it. Answers whether the work can be
/// tried again.
bool offerRepair(SharedState &shared, const QString &undone, const QString &title);

/// Carries out an update or a delete, again and again as long as DbErrorHandler() asks for it. Answers
/// whether it was carried out in the end.
bool writeWithRetry(SharedState &shared, const std::function<void()> &write);

} // namespace obelmark
