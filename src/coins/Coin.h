// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <optional>
#include <span>
#include <variant>

namespace obelmark {

class Dynaset;
class Recordset;

/// A coin, or a lot of identical coins: a row of the table Coin, its fields under the names of their columns.
/// Nothing in a field is null in the file, which is not the same as an empty text.
struct Coin
{
    template<class T>
    using Maybe = std::optional<T>;

    qint64 coinid = 0; ///< 0: not in the file yet
    Maybe<QString> descr;
    Maybe<QString> catnum;
    Maybe<QString> catsort; ///< see MakeCatSort()
    Maybe<Money> face;
    Maybe<qint16> Year;
    Maybe<bool> wantlist; ///< wanted, not owned: pricepaid is what the collector will pay
    Maybe<qint32> quantity;
    Maybe<qint32> conid; ///< this and the other keys: of an entry of a lookup table
    Maybe<qint32> couid;
    Maybe<qint32> minid;
    Maybe<qint32> catid;
    Maybe<qint32> typid;
    Maybe<qint32> forid;
    Maybe<QString> SerNum;
    Maybe<QString> Metal;
    Maybe<QString> Errors;
    Maybe<Date> issuedate;
    Maybe<qint32> bouid;
    Maybe<Money> pricepaid; ///< of one coin, as the other two prices; the totals are of the lot
    Maybe<Money> totalpaid;
    Maybe<Date> PurchaseDate;
    Maybe<Money> catvalue;
    Maybe<Money> totalval;
    Maybe<Date> SoldDate;
    Maybe<bool> forsale;
    Maybe<bool> sold;
    Maybe<Money> priceask;
    Maybe<Money> totalsales;
    Maybe<QString> notes; ///< lines end with CR LF
    Maybe<QString> misc1;
    Maybe<QString> misc2;

    bool operator==(const Coin &) const = default;
};

/// A column of the table Coin and the field of a Coin that it is.
struct CoinColumn
{
    using Member =
        std::variant<Coin::Maybe<QString> Coin::*, Coin::Maybe<Money> Coin::*, Coin::Maybe<Date> Coin::*,
                     Coin::Maybe<bool> Coin::*, Coin::Maybe<qint16> Coin::*, Coin::Maybe<qint32> Coin::*>;

    const char16_t *name;
    Member field;
    int mostLetters = 0;      ///< that can be typed; 0: any number
    bool hasSortText = false; ///< the engine keeps what it is ordered by in a companion

    bool isText() const { return std::holds_alternative<Coin::Maybe<QString> Coin::*>(field); }
    Value in(const Coin &coin) const;
    /// \throws TypeMismatch when the value is none for such a column
    void put(Coin &coin, const Value &value) const;
    /// Puts any value but null.
    void putAnything(Coin &coin) const;
};

/// All but the key, in the order in which a coin is written.
std::span<const CoinColumn> coinColumns();
/// Null when there is none of that name.
const CoinColumn *findCoinColumn(QStringView name);

/// The current row of a recordset that has every column of the table Coin. \throws as Recordset::value()
Coin readCoin(const Recordset &row);
/// Writes into the row that has been begun. What is as it was is not touched. \throws as Dynaset::setValue()
void writeCoin(Dynaset &row, const Coin &coin);
/// The same for what differs from \a before, which the row holds.
void writeChanges(Dynaset &row, const Coin &before, const Coin &coin);

/// What the user would call it: "Morgan dollar 1881".
QString coinName(const Coin &coin);

} // namespace obelmark
