// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/LookupLists.h"

#include "common/SharedState.h"
#include "editor/LookupList.h"
#include "store/CoinFile.h"
#include "ui_frmMain.h"

namespace obelmark {

namespace {

struct ListRow
{
    Lookup table;
    LookupList *Ui::frmMain::*list;
};

constexpr ListRow listTable[] = {
    {Lookup::Conditions, &Ui::frmMain::cmbCon}, {Lookup::Sellers, &Ui::frmMain::cmbBou},
    {Lookup::Types, &Ui::frmMain::cmbTyp},      {Lookup::Categories, &Ui::frmMain::cmbCat},
    {Lookup::Countries, &Ui::frmMain::cmbCou},  {Lookup::Mints, &Ui::frmMain::cmbMin},
    {Lookup::Formats, &Ui::frmMain::cmbFor},
};

void reload(LookupList &list, Database &database, const LookupTable &table)
{
    const qint64 remembered = list.key().value_or(0);
    list.clear();
    int selected = -1;
    const auto entries = database.openSnapshot(table.entriesQuery());
    for (; !entries->eof(); entries->moveNext()) {
        const qint64 key = entries->value(table.KeyField).toInt();
        if (key == remembered)
            selected = list.count();
        list.addItem(entries->value(table.DescField).toText(), QVariant::fromValue(key));
    }
    // The list selects its first entry by itself, which would turn a null key into a wrong one.
    list.setCurrentIndex(selected);
}

} // namespace

void markAllLookupListsStale(SharedState &shared)
{
    for (const LookupTable &table : lookupTables())
        shared.*table.stale = true;
}

void reloadStaleLookupLists(Ui::frmMain &window, SharedState &shared)
{
    for (const ListRow &row : listTable) {
        const LookupTable &table = lookupTable(row.table);
        if (!(shared.*table.stale))
            continue;
        reload(*(window.*row.list), coinDatabase(shared), table);
        shared.*table.stale = false;
    }
}

} // namespace obelmark
