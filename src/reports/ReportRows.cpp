// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/ReportRows.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "reports/ReportTarget.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 rowsBetweenLooks = 1000;

/// A query that sorts more than fits into memory does so in temporary files.
std::unique_ptr<ForwardOnly> openRows(Database &database, const QString &sql)
{
    try {
        return database.openForwardOnly(sql);
    } catch (const NumberedError &error) {
        if (error.number() != DiskFull)
            throw;
        throw ReportFileError(DiskFull,
                              u"The report could not be made.  There is no room on the disk for the "
                              "temporary files that sort it."_s);
    }
}

} // namespace

RowsRead forEachRow(SharedState &shared, const QString &sql,
                    const std::function<void(const ForwardOnly &)> &row)
{
    if (!shared.CoinDatabase)
        throw runtimeError(ObjectNotSet);
    const std::unique_ptr<Progress> progress = shared.desktop.showProgress(u"Report"_s, true);
    const std::unique_ptr<ForwardOnly> rows = openRows(*shared.CoinDatabase, sql);
    if (rows->eof())
        return RowsRead::None;
    for (qint64 done = 1; !rows->eof(); ++done, rows->moveNext()) {
        row(*rows);
        if (done % rowsBetweenLooks != 0)
            continue;
        if (!progress->update(u"%1 rows"_s.arg(shared.regional.locale().toString(done)), done, 0))
            return RowsRead::Cancelled;
    }
    return RowsRead::All;
}

} // namespace obelmark
