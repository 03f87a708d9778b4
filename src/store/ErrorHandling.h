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

/// Ends the program at once, without unloading a window. The database is let go of first, so that no journal
/// stays beside it; what has not been committed is not saved.
[[noreturn]] void endProgram(SharedState &shared);

/// Raised by attempt() after a database that was in use has been repaired: the recordsets on it are gone and
/// CoinRecordset has been opened anew on its first row, so the procedure under way cannot go on.
struct DatabaseRepaired
{
};

/// Runs one statement of a procedure. An error goes to DbErrorHandler(), and the caller goes on with its next
/// statement. Answers whether the statement was carried out.
bool attempt(SharedState &shared, const std::function<void()> &statement);

/// Carries out an update or a delete, again and again as long as DbErrorHandler() asks for it. Answers
/// whether it was carried out in the end.
bool writeWithRetry(SharedState &shared, const std::function<void()> &write);

} // namespace obelmark
