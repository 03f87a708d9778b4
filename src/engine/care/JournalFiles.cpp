// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/JournalFiles.h"

#include "engine/language/EngineError.h"
#include <QFile>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace obelmark {

void settleJournal(const QString &path)
{
    if (QFileInfo(path).size() == 0) // the library would make an empty database of it
        return;
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
        database.exec("begin exclusive; commit; pragma journal_mode = delete");
    } catch (const SQLite::Exception &error) {
        if (error.getErrorCode() == SQLITE_BUSY)
            throw EngineError(FileInUse, path);
    }
}

void removeJournals(const QString &path)
{
    for (const QLatin1StringView suffix : journalSuffixes)
        QFile::remove(path + suffix);
}

} // namespace obelmark
