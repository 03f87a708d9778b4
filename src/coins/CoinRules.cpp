// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/CoinRules.h"

#include "common/CatalogueSort.h"
#include "desktop/Desktop.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr PriceAndTotal prices[] = {
    {&Coin::pricepaid, &Coin::totalpaid},
    {&Coin::catvalue, &Coin::totalval},
    {&Coin::priceask, &Coin::totalsales},
};

bool isEmpty(const Coin::Maybe<QString> &text)
{
    return !text || text->isEmpty();
}

} // namespace

std::optional<BrokenRule> ValidateCoin(const Coin &coin)
{
    const bool isForSale = coin.forsale.value_or(false);
    if (isEmpty(coin.descr) && isEmpty(coin.catnum) && !coin.face)
        return BrokenRule{
            u"descr",
            u"You must enter a description, a catalog number or a face value for this coin or click "
            "the Cancel button."_s,
            QString::fromUtf16(applicationTitle)};
    if (!coin.quantity)
        return BrokenRule{u"quantity", u"You must enter number in the quantity field."_s,
                          u"Non-numeric Quantity Entered"_s};
    if (isForSale && coin.sold.value_or(false))
        return BrokenRule{u"forsale", u"A Coin cannot be for sale and sold at the same time."_s,
                          u"Sale Status Error"_s};
    if (isForSale && coin.wantlist.value_or(false))
        return BrokenRule{u"wantlist",
                          u"A Coin cannot be both for sale and on your want list at the same time."_s,
                          u"Want List Error"_s};
    return {};
}

QString catSortOf(const Coin &coin)
{
    return MakeCatSort(coin.catnum.value_or(QString()));
}

std::span<const PriceAndTotal> pricesAndTotals()
{
    return prices;
}

void computeTotals(Coin &coin)
{
    for (const PriceAndTotal &each : prices) {
        if (const auto &price = coin.*each.price)
            coin.*each.total = price->times(Money::fromWhole(coin.quantity.value_or(0)));
    }
}

SplitLot splitLot(const Coin &lot, const Coin &shown, qint32 number, Date today)
{
    SplitLot split{shown, lot};
    split.sold.coinid = 0;
    // Unlike that of an edited coin, this key takes the digits behind a hyphen too.
    split.sold.catsort = MakeCatSort(shown.catnum.value_or(QString()).remove(u'-'));
    // A saved edit would put the issue date into the century of the year.
    split.sold.issuedate = lot.issuedate;
    for (const PriceAndTotal &each : prices)
        (split.sold.*each.total).reset();
    split.sold.quantity = number;
    split.sold.forsale = false;
    split.sold.sold = true;
    split.sold.SoldDate = today;
    split.kept.quantity = lot.quantity.value_or(0) - number;
    computeTotals(split.sold);
    computeTotals(split.kept);
    return split;
}

} // namespace obelmark
