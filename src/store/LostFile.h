#pragma once

namespace obelmark {

struct SharedState;

/// When another program has taken the file away from under the open coin database. The user is told what has
/// happened.
///
/// Renamed, deleted or replaced: on the user's wish all that has been saved goes into a new file beside it,
/// which is DatabasePath from then on. When the user does not wish that, everything stays as it is: it can be
/// read, and every write comes here again. When the whole folder has another name, the program follows it.
/// Written into: the file is opened anew, and repaired when that is needed.
void meetLostFile(SharedState &shared);

} // namespace obelmark
