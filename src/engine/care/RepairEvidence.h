#pragma once

#include "engine/care/SalvageFile.h"

namespace obelmark {

/// What the indexes of a table tell of its rows.
class RepairEvidence
{
public:
    /// Reads an index that has an entry for every row. \a columns: those of the table that it is made of, -1
    /// for the row id.
    void readIndex(SalvageFile &damaged, std::uint32_t rootPage, const std::vector<int> &columns);
    /// Makes ready for the questions below.
    void finish();

    /// Whether an index has been read to its end: then it names every row.
    bool isComplete() const { return m_isComplete; }
    bool names(std::int64_t id) const;
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
    };
    std::size_t entryHash(std::size_t index, const SalvagedRow &row, const std::vector<int> &columns) const;

    std::vector<Index> m_indexes;
    std::vector<std::size_t> m_entries; ///< hashes
    std::vector<std::int64_t> m_ids;
    std::vector<std::int64_t> m_agreedIds;
    bool m_isComplete = false;
};

} // namespace obelmark
