// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/CollectionChanges.h"
#include "common/LookupTables.h"
#include "common/MenuChoices.h"
#include "engine/rows/Database.h"
#include "runtime/Dates.h"
#include "runtime/RegionalSettings.h"
#include <QString>
#include <memory>

namespace obelmark {

class Desktop;

/// The program-wide variables, made once when the program starts and passed to every window by reference.
/// Windows talk through these, not through arguments: a caller sets some, shows the other window, and reads
/// some when it comes back.
struct SharedState
{
    SharedState(Desktop &desktop, RegionalSettings regional);
    ~SharedState();
    SharedState(const SharedState &) = delete;
    SharedState &operator=(const SharedState &) = delete;

    Desktop &desktop;
    RegionalSettings regional;

    QString AppFolder;    ///< the current directory at start-up, with a trailing "/"
    QString DatabasePath; ///< coin.mdb in AppFolder
    QString HelpFilePath; ///< coin.hlp in AppFolder

    std::unique_ptr<Database> CoinDatabase; ///< open exclusively from the main window's load to its unload
    std::unique_ptr<Dynaset> CoinRecordset; ///< all coins in SortOrder; its current row is the coin on screen

    /// Tells every window of the coins and entries that have been written.
    CollectionSignal changes;
    /// How often the database in use has been repaired or opened anew: recordsets of before are gone.
    int DatabaseRepairs = 0;
    /// How often another program had changed its contents: a key may be that of another row now.
    int DatabaseChanges = 0;
    /// The user knows that its file has been taken away, and need not be told before the next write.
    bool FileLossTold = false;

    CoinOrder SortOrder = CoinOrder::Description;

    Lookup CodesMode = Lookup::Categories; ///< the table to be maintained
    bool ReloadCategories = false;         ///< the main window's list of that table is stale
    bool ReloadConditions = false;
    bool ReloadCountries = false;
    bool ReloadFormats = false;
    bool ReloadMints = false;
    bool ReloadSellers = false;
    bool ReloadTypes = false;

    bool PictureChanged = false; ///< the picture window holds a picture to be written with the record

    qint16 LockRetryCount = 0;   ///< consecutive lock failures of the write now being tried
    bool LockRetryAgain = false; ///< that write must be tried once more

    QString UseWith;            ///< the catalogue rows that Find offers
    QString CustomUseWith;      ///< the catalogue rows that the report designer offers
    bool FindCancelled = false; ///< no search was started; a file dialog was left with Cancel

    ReportKind OutputTarget = ReportKind::Preview;
    bool RepeatHeading = false;      ///< the headings stand on top of every page
    quint32 HeadingShade = 0xC8C8C8; ///< colour of a report's repeated heading row

    Lookup ReportGroupMode = Lookup::Categories; ///< the table that the grouped report groups by
    qint32 SelectedGroupID = -1;                 ///< the key of the entry to report on; -1 for all

    QString DateOrder; ///< the order of month, day and year in the system's short date, such as "dmy"
    QString DateSep;   ///< its separator
    Date PickDate;     ///< the date that the calendar starts from, then the one that was picked in it
};

} // namespace obelmark
