// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/Coin.h"

#include "engine/rows/Dynaset.h"
#include "runtime/NumberedError.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr CoinColumn columns[] = {
    {u"descr", &Coin::descr, 80, true},
    {u"catnum", &Coin::catnum, 30, true},
    {u"catsort", &Coin::catsort},
    {u"face", &Coin::face},
    {u"Year", &Coin::Year},
    {u"wantlist", &Coin::wantlist},
    {u"quantity", &Coin::quantity},
    {u"conid", &Coin::conid},
    {u"couid", &Coin::couid},
    {u"minid", &Coin::minid},
    {u"catid", &Coin::catid},
    {u"typid", &Coin::typid},
    {u"forid", &Coin::forid},
    {u"SerNum", &Coin::SerNum, 80},
    {u"Metal", &Coin::Metal, 80},
    {u"Errors", &Coin::Errors, 50},
    {u"issuedate", &Coin::issuedate},
    {u"bouid", &Coin::bouid},
    {u"pricepaid", &Coin::pricepaid},
    {u"totalpaid", &Coin::totalpaid},
    {u"PurchaseDate", &Coin::PurchaseDate},
    {u"catvalue", &Coin::catvalue},
    {u"totalval", &Coin::totalval},
    {u"SoldDate", &Coin::SoldDate},
    {u"forsale", &Coin::forsale},
    {u"sold", &Coin::sold},
    {u"priceask", &Coin::priceask},
    {u"totalsales", &Coin::totalsales},
    {u"notes", &Coin::notes},
    {u"misc1", &Coin::misc1, 50},
    {u"misc2", &Coin::misc2, 50},
};

/// What a value holds for a field of that type: whole numbers come in 64 bits.
template<class T>
using Held = std::conditional_t<std::is_integral_v<T> && !std::is_same_v<T, bool>, qint64, T>;

template<class T>
void putInto(std::optional<T> &field, const Value &value)
{
    if (value.isNull()) {
        field.reset();
        return;
    }
    const auto *held = value.as<Held<T>>();
    if (!held)
        throw runtimeError(TypeMismatch);
    field = T(*held);
    if (Held<T>(*field) != *held)
        throw runtimeError(Overflow);
}

} // namespace

Value CoinColumn::in(const Coin &coin) const
{
    return std::visit(
        [&](const auto member) {
            const auto &held = coin.*member;
            return held ? Value(*held) : Value();
        },
        field);
}

void CoinColumn::put(Coin &coin, const Value &value) const
{
    std::visit([&](const auto member) { putInto(coin.*member, value); }, field);
}

void CoinColumn::putAnything(Coin &coin) const
{
    std::visit([&](const auto member) { (coin.*member).emplace(); }, field);
}

std::span<const CoinColumn> coinColumns()
{
    return columns;
}

const CoinColumn *findCoinColumn(QStringView name)
{
    const auto *const found = std::ranges::find_if(columns, [&](const CoinColumn &column) {
        return name.compare(column.name, Qt::CaseInsensitive) == 0;
    });
    return found == std::end(columns) ? nullptr : found;
}

Coin readCoin(const Recordset &row)
{
    Coin coin;
    coin.coinid = row.value(u"coinid").toInt();
    for (const CoinColumn &column : columns)
        column.put(coin, row.value(column.name));
    return coin;
}

void writeCoin(Dynaset &row, const Coin &coin)
{
    for (const CoinColumn &column : columns)
        row.setValue(column.name, column.in(coin));
}

void writeChanges(Dynaset &row, const Coin &before, const Coin &coin)
{
    for (const CoinColumn &column : columns) {
        if (column.in(coin) != column.in(before))
            row.setValue(column.name, column.in(coin));
    }
}

QString coinName(const Coin &coin)
{
    const QString description = coin.descr.value_or(QString());
    const QString name = description.isEmpty() ? coin.catnum.value_or(QString()) : description;
    const QString year = coin.Year ? QString::number(*coin.Year) : QString();
    return name.contains(year) ? name : u"%1 %2"_s.arg(name, year).trimmed();
}

} // namespace obelmark
