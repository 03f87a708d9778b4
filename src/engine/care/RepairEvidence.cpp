#include "engine/care/RepairEvidence.h"

#include <algorithm>
#include <numeric>

namespace obelmark {

namespace {

/// With so many indexes an id must be in two of them.
constexpr std::size_t indexesThatCheckEachOther = 3;

std::size_t hashOf(const SalvagedValue &value)
{
    const auto hash = [](const auto &content) {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, QByteArray>)
            return std::size_t(qHash(content));
        else
            return std::hash<Content>()(content);
    };
    return std::visit(hash, value) * 31 + value.index();
}

} // namespace

void RepairEvidence::readIndex(SalvageFile &damaged, std::uint32_t rootPage, const std::vector<int> &columns)
{
    const std::size_t number = m_indexes.size();
    std::vector<int> places(columns.size());
    std::iota(places.begin(), places.end(), 0);
    bool isAnother = false;
    const std::size_t entriesBefore = m_entries.size();
    const bool isWhole = damaged.readIndex(rootPage, [&](const SalvagedRow &entry) {
        isAnother = isAnother || entry.values.size() != columns.size() + 1;
        if (isAnother)
            return;
        m_entries.push_back(entryHash(number, entry, places));
        m_ids.push_back(entry.id);
    });
    // An empty page in the place of another looks like an index of nothing.
    const bool hasEntries = m_entries.size() > entriesBefore;
    m_indexes.push_back({columns, isWhole && !isAnother && hasEntries});
    m_isComplete = m_isComplete || m_indexes.back().complete;
}

void RepairEvidence::finish()
{
    std::sort(m_entries.begin(), m_entries.end());
    std::sort(m_ids.begin(), m_ids.end());
    const bool checked = m_indexes.size() >= indexesThatCheckEachOther;
    for (std::size_t i = 0; i < m_ids.size(); ++i) {
        const bool isFirst = i == 0 || m_ids[i] != m_ids[i - 1];
        const bool isRepeated = i + 1 < m_ids.size() && m_ids[i + 1] == m_ids[i];
        if (isFirst && (isRepeated || !checked))
            m_agreedIds.push_back(m_ids[i]);
    }
    m_ids.erase(std::unique(m_ids.begin(), m_ids.end()), m_ids.end());
}

bool RepairEvidence::names(std::int64_t id) const
{
    return std::binary_search(m_ids.begin(), m_ids.end(), id);
}

bool RepairEvidence::confirms(const SalvagedRow &row) const
{
    bool confirmed = false;
    for (std::size_t i = 0; i < m_indexes.size(); ++i) {
        const Index &index = m_indexes[i];
        const bool isThere =
            std::binary_search(m_entries.begin(), m_entries.end(), entryHash(i, row, index.columns));
        if (index.complete && !isThere)
            return false;
        confirmed = confirmed || isThere;
    }
    return confirmed;
}

std::size_t RepairEvidence::entryHash(std::size_t index, const SalvagedRow &row,
                                      const std::vector<int> &columns) const
{
    std::size_t hash = index * 1000003 + std::hash<std::int64_t>()(row.id);
    for (const int column : columns) {
        const bool isId = column < 0 || std::size_t(column) >= row.values.size();
        const SalvagedValue value = isId ? SalvagedValue() : row.values[std::size_t(column)];
        hash = hash * 0x9E3779B97F4A7C15u + hashOf(value);
    }
    return hash;
}

} // namespace obelmark
