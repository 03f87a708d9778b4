// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "coins/Coin.h"
#include <span>

namespace obelmark {

/// A rule that a coin breaks, as the user is told of it.
struct BrokenRule
{
    const char16_t *column; ///< of the field that is to be looked at
    QString message;
    QString title;
};

/// The first of the rules that a coin in the file keeps and this one breaks: it has a description, a
/// catalogue number or a face value; its quantity is a number; what is for sale is neither sold nor wanted.
std::optional<BrokenRule> ValidateCoin(const Coin &coin);

/// The catalogue sort key of a coin that is saved; see MakeCatSort().
QString catSortOf(const Coin &coin);

/// A price of one coin, and what the lot comes to at that price.
struct PriceAndTotal
{
    Coin::Maybe<Money> Coin::*price;
    Coin::Maybe<Money> Coin::*total;
};
std::span<const PriceAndTotal> pricesAndTotals();

/// Sets the totals of those prices that there are. \throws Overflow
void computeTotals(Coin &coin);

/// A lot of which some coins have been sold.
struct SplitLot
{
    Coin sold; ///< not in the file yet
    Coin kept;
};
/// \a lot is the lot as it is in the file; \a shown the same coin as it would be saved now, which is what
/// the sold ones are recorded as, with the totals of their number. \a number is less than there are.
/// \throws Overflow
SplitLot splitLot(const Coin &lot, const Coin &shown, qint32 number, Date today);

} // namespace obelmark
