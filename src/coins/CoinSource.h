// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "coins/CoinSet.h"
#include <functional>
#include <optional>
#include <string>

namespace obelmark {

/// Where a coin stands in an order.
struct SortPlace
{
    std::string sortKey; ///< see appendToSortKey()
    qint32 key = 0;

    auto operator<=>(const SortPlace &) const = default;
};

/// Reads the places of the coins of a set from the file, some keys at a time: no query is left open.
class CoinSource
{
public:
    /// Of the set, or any coin.
    enum class Which { OfTheSet, Any };
    using Visit = std::function<void(std::string_view sortKey, qint32 key)>;

    /// \throws UnknownColumn when the order names one
    CoinSource(Database &database, const CoinQuery &query);

    /// The coins of the set with keys from \a first to \a last, in the order of the keys.
    void visit(qint64 first, qint64 last, const Visit &visit) const;
    /// Nothing when there is no such coin.
    std::optional<SortPlace> place(qint64 key, Which which) const;
    /// The lowest key from \a first on, the highest of all; nothing when there is none.
    std::optional<qint64> nextKey(qint64 first) const;
    std::optional<qint64> lastKey() const;

    bool isSorted() const { return !m_descending.empty(); }
    bool readsEntries() const { return m_readsEntries; }

private:
    void read(const QString &condition, const Visit &visit) const;
    std::optional<qint64> keyOf(const QString &query) const;

    Database &m_database;
    QString m_select;
    QString m_condition;
    std::vector<bool> m_descending; ///< by the terms of the order
    bool m_readsEntries = false;
};

} // namespace obelmark
