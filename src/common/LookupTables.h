// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <span>

namespace obelmark {

struct SharedState;

/// The seven lookup tables, by the codes of the Maintain menu.
enum class Lookup { Categories = 1, Conditions, Countries, Formats, Mints, Sellers, Types };

/// What a lookup table is: its entries have a counter, a description that they are ordered by, and maybe
/// more. Coin refers to an entry by a column of the name of the counter.
struct LookupTable
{
    Lookup id;
    const char16_t *name;
    const char16_t *KeyField;
    const char16_t *DescField;
    const char16_t *caption; ///< what an entry is called where there is a column of them
    const char16_t *plural;
    bool SharedState::*stale; ///< the main window's list of its entries is to be loaded anew
    std::span<const char16_t *const> otherFields = {};

    /// All its entries in their order.
    QString entriesQuery() const;
    /// The keys of the coins that refer to an entry.
    QString coinsQuery(qint64 key) const;
};

/// All seven, in the order of their codes.
std::span<const LookupTable> lookupTables();
const LookupTable &lookupTable(Lookup id);

} // namespace obelmark
