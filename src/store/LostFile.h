// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

namespace obelmark {

class Database;
struct SharedState;

/// When another program has taken the file away from under the open coin database. The user is told what has
/// happened.
///
/// Renamed, deleted or replaced: on the user's wish all that has been saved goes into a new file beside it,
/// which is DatabasePath from then on. When the user does not wish that, everything stays as it is: it can be
/// read, and every write comes here again. When the whole folder has another name, the program follows it.
/// Written into: the file is opened anew, and repaired when that is needed.
void meetLostFile(SharedState &shared);

/// The coin database while work on its file as a whole goes on. For everybody else it is closed, but the file
/// is not lost when another program takes its name away meanwhile.
class LentFile
{
public:
    /// Takes CoinDatabase; CoinRecordset is closed.
    explicit LentFile(SharedState &shared);
    ~LentFile();
    LentFile(const LentFile &) = delete;
    LentFile &operator=(const LentFile &) = delete;

    /// Closes the database for good. When there is no file of its name any more, the user is told as by
    /// meetLostFile(), and CoinDatabase is open again.
    void takeBack();

private:
    SharedState &m_shared;
    std::unique_ptr<Database> m_database;
};

} // namespace obelmark
