// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/LookupTables.h"

#include "common/SharedState.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr const char16_t *sellerFields[] = {u"BouPhone", u"BouFav", u"bounotes"};

constexpr LookupTable tables[] = {
    {Lookup::Categories, u"category", u"catid", u"catdesc", u"Category", u"Categories",
     &SharedState::ReloadCategories},
    {Lookup::Conditions, u"condition", u"conid", u"Condesc", u"Condition", u"Conditions",
     &SharedState::ReloadConditions},
    {Lookup::Countries, u"country", u"couid", u"coudesc", u"Country", u"Countries",
     &SharedState::ReloadCountries},
    {Lookup::Formats, u"format", u"forid", u"fordesc", u"Format", u"Formats", &SharedState::ReloadFormats},
    {Lookup::Mints, u"mint", u"minid", u"mindesc", u"Mint", u"Mints", &SharedState::ReloadMints},
    {Lookup::Sellers, u"boughtfrom", u"bouid", u"bouDesc", u"Seller", u"Sellers", &SharedState::ReloadSellers,
     sellerFields},
    {Lookup::Types, u"type", u"typid", u"typdesc", u"Type", u"Types", &SharedState::ReloadTypes},
};

} // namespace

QString LookupTable::entriesQuery() const
{
    return u"Select * from %1 order by %2"_s.arg(QStringView(name), QStringView(DescField));
}

QString LookupTable::coinsQuery(qint64 key) const
{
    return u"Select CoinID from Coin where %1 = %2"_s.arg(KeyField).arg(key);
}

std::span<const LookupTable> lookupTables()
{
    return tables;
}

const LookupTable &lookupTable(Lookup id)
{
    return tables[size_t(id) - 1];
}

} // namespace obelmark
