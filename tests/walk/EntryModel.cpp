// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/EntryModel.h"

#include <algorithm>

namespace obelmark::walk {

using namespace Qt::StringLiterals;

EntryModel::EntryModel(const Lookup &of, CoinModel &mainWindow)
    : entries{&mainWindow.tables[of.table], {of.column}}, columns{{u"txtDesc"_s, of.column}}, m_lookup(of),
      m_main(mainWindow)
{
    if (of.table == u"boughtfrom")
        columns.insert({{u"txtBouPhone"_s, u"BouPhone"_s},
                        {u"chkBouFav"_s, u"BouFav"_s},
                        {u"txtBouNotes"_s, u"bounotes"_s}});
    entries.move(Way::First);
    show();
}

void EntryModel::show()
{
    state = State::Browsing;
    enabled = entries.at.has_value();
    for (const auto &[name, column] : columns.asKeyValueRange()) {
        const bool isMark = name == u"chkBouFav";
        shown[name] = enabled  ? entries.row().value(column, isMark ? u"0"_s : QString())
                       : isMark ? u"0"_s
                               : u""_s;
        shown[name].replace("\r\n"_L1, "\n"_L1);
    }
}

void EntryModel::enter(const QString &name, const QString &value)
{
    const bool isChange = !shown[name].isEmpty() || !value.isEmpty();
    shown[name] = name == u"txtDesc" ? value.left(50) : value;
    if (isChange && state == State::Browsing)
        state = State::Editing;
}

void EntryModel::move(Way way)
{
    if (entries.move(way))
        m_main.told << u"beep"_s;
    show();
}

bool EntryModel::save()
{
    if (shown[u"txtDesc"_s].isEmpty()) {
        m_main.tell(u"You must enter a description or press Cancel"_s, u"Missing Data"_s);
        return false;
    }
    Row row;
    for (const auto &[name, column] : columns.asKeyValueRange())
        row[column] = QString(shown[name]).replace("\n"_L1, "\r\n"_L1);
    if (state == State::Adding)
        m_saved = entries.table->add(row);
    else
        entries.table->put(m_saved = *entries.at, row);
    return true;
}

void EntryModel::addNew()
{
    if (state == State::Adding && !save())
        return;
    if (state != State::Adding)
        entries.move(Way::Last);
    state = State::Adding;
    enabled = true;
    for (const auto &[name, column] : columns.asKeyValueRange())
        shown[name] = name == u"chkBouFav" ? u"0"_s : u""_s;
}

void EntryModel::update()
{
    if (!save())
        return;
    entries.toKey(m_saved);
    show();
}

void EntryModel::cancel()
{
    entries.move(Way::Last);
    show();
}

void EntryModel::remove(bool yes)
{
    if (!entries.at)
        return;
    m_main.tell(u"Are you sure that you want to delete this %1?"_s.arg(m_lookup.asked),
                u"Delete "_s + m_lookup.title);
    if (!yes)
        return;
    const QString key = QString::number(*entries.at);
    if (std::ranges::any_of(m_main.coins.table->rows,
                            [&](const auto &coin) { return coin.second.value(m_lookup.key) == key; }))
        return m_main.tell(u"This %1 is in use in a Coin record"_s.arg(m_lookup.inUse), u"Cannot Delete"_s);
    entries.remove();
    show();
}

void EntryModel::find(const QString &beginning)
{
    m_main.tell(u"Enter the %1 description to find:"_s.arg(m_lookup.noun), u"Find Code"_s);
    entries.search(Way::First, [&](const Row &row) {
        return fold(row.value(m_lookup.column)).startsWith(fold(beginning));
    });
    if (entries.noMatch)
        m_main.tell(u"That record was not found."_s, u"No Records Match"_s);
    else
        show();
}

} // namespace obelmark::walk
