// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/SalvageFile.h"
#include <unordered_set>

namespace obelmark {

/// What the indexes of a table tell of its rows. A page of an index may lie in the place of another's: rows
/// that are known to be in the table show it.
class RepairEvidence
{
public:
    using EntryTest = std::function<bool(const SalvagedRow &)>;

    /// Reads an index that has an entry for every row. \a columns: those of the table that it is made of, -1
    /// for the row id. A page most of whose entries do not pass \a couldBe is another's.
    void readIndex(SalvageFile &damaged, std::uint32_t rootPage, const std::vector<int> &columns,
                   const EntryTest &couldBe);
    /// Makes ready for the questions below, when all indexes have been read.
    void finish();
    /// A row that is in the table; finish() must have been called.
    void learn(const SalvagedRow &row);
    /// Forgets pages with ids beyond the highest that the table has given.
    void forgetBeyond(std::int64_t highest);
    /// Forgets pages that tell of rows in the table, and of each of them wrongly. \a ids: all those that are
    /// in the table, rising.
    void forgetForeign(const std::vector<std::int64_t> &ids) { forgetUnlike(ids, false); }
    /// Forgets pages that tell of no row in the table rightly, unless there are none.
    void forgetUnproved(const std::vector<std::int64_t> &ids) { forgetUnlike(ids, true); }

    bool isEmpty() const { return m_entries.empty(); }
    /// Whether an index has been read to its end and goes with the table: then it names every row.
    bool isComplete() const;
    bool names(std::int64_t id) const;
    /// Whether this very row has been learned.
    bool knows(const SalvagedRow &row) const;
    /// Whether the indexes have the row with these very values.
    bool confirms(const SalvagedRow &row) const;
    /// The ids that the indexes agree upon; an id in one of several may be misread.
    const std::vector<std::int64_t> &agreedIds() const { return m_agreedIds; }
    std::int64_t highestId() const { return m_ids.empty() ? 0 : m_ids.back(); }

private:
    struct Index
    {
        std::vector<int> columns;
        bool complete;
        bool goesWithTable = false;
    };
    struct Entry
    {
        std::size_t hash;
        std::int64_t id;
        std::uint32_t page;
        bool isRight = false; ///< there is such a row in the table

        friend bool operator<(const Entry &entry, const Entry &other) { return entry.hash < other.hash; }
    };

    static std::size_t entryHash(std::size_t index, const SalvagedRow &row, const std::vector<int> &columns);
    static std::size_t rowHash(const SalvagedRow &row);
    bool checkEachOther() const;
    void forgetUnlike(const std::vector<std::int64_t> &ids, bool alsoUnproved);
    void forgetPages(const std::vector<bool> &pages);
    void collectIds();

    std::vector<Index> m_indexes;
    std::vector<std::size_t> m_pages;        ///< the number of the index that each page belongs to
    std::vector<Entry> m_entries;            ///< by hash
    std::unordered_set<std::size_t> m_known; ///< hashes of rows
    std::vector<std::int64_t> m_ids;
    std::vector<std::int64_t> m_agreedIds;
};

} // namespace obelmark
