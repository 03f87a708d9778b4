// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

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

void RepairEvidence::readIndex(SalvageFile &damaged, std::uint32_t rootPage, const std::vector<int> &columns,
                               const EntryTest &couldBe)
{
    const std::size_t number = m_indexes.size();
    std::vector<int> places(columns.size());
    std::iota(places.begin(), places.end(), 0);
    const auto isOurs = [&](const SalvagedRow &entry) {
        return entry.values.size() == columns.size() + 1 && couldBe(entry);
    };
    bool areAllOurs = true;
    const bool isWhole = damaged.readIndex(rootPage, [&](const std::vector<SalvagedRow> &entries) {
        const auto ours = std::count_if(entries.begin(), entries.end(), isOurs);
        if (2 * std::size_t(ours) < entries.size())
            return false;
        areAllOurs = areAllOurs && std::size_t(ours) == entries.size();
        const auto page = std::uint32_t(m_pages.size());
        m_pages.push_back(number);
        for (const SalvagedRow &entry : entries) {
            if (isOurs(entry))
                m_entries.push_back({entryHash(number, entry, places), entry.id, page});
        }
        return true;
    });
    m_indexes.push_back({columns, isWhole && areAllOurs});
}

bool RepairEvidence::checkEachOther() const
{
    return m_indexes.size() >= indexesThatCheckEachOther;
}

void RepairEvidence::finish()
{
    std::sort(m_entries.begin(), m_entries.end());
    collectIds();
}

void RepairEvidence::collectIds()
{
    m_ids.clear();
    m_agreedIds.clear();
    for (const Entry &entry : m_entries)
        m_ids.push_back(entry.id);
    std::sort(m_ids.begin(), m_ids.end());
    for (std::size_t i = 0; i < m_ids.size(); ++i) {
        const bool isFirst = i == 0 || m_ids[i] != m_ids[i - 1];
        const bool isRepeated = i + 1 < m_ids.size() && m_ids[i + 1] == m_ids[i];
        if (isFirst && (isRepeated || !checkEachOther()))
            m_agreedIds.push_back(m_ids[i]);
    }
    m_ids.erase(std::unique(m_ids.begin(), m_ids.end()), m_ids.end());
}

void RepairEvidence::learn(const SalvagedRow &row)
{
    if (checkEachOther())
        return;
    m_known.insert(rowHash(row));
    for (std::size_t i = 0; i < m_indexes.size(); ++i) {
        const Entry wanted{entryHash(i, row, m_indexes[i].columns), row.id, 0};
        const auto [begin, end] = std::equal_range(m_entries.begin(), m_entries.end(), wanted);
        for (auto entry = begin; entry != end; ++entry) {
            entry->isRight = true;
            m_indexes[i].goesWithTable = true;
        }
    }
}

void RepairEvidence::forgetUnlike(const std::vector<std::int64_t> &ids, bool alsoUnproved)
{
    if (checkEachOther())
        return;
    std::vector<bool> hasRight(m_pages.size());
    std::vector<bool> hasWrong(m_pages.size());
    if (alsoUnproved && !ids.empty())
        hasWrong.flip();
    for (const Entry &entry : m_entries) {
        if (entry.isRight)
            hasRight[entry.page] = true;
        else if (std::binary_search(ids.begin(), ids.end(), entry.id))
            hasWrong[entry.page] = true;
    }
    for (std::size_t page = 0; page < m_pages.size(); ++page)
        hasWrong[page] = hasWrong[page] && !hasRight[page];
    forgetPages(hasWrong);
}

void RepairEvidence::forgetBeyond(std::int64_t highest)
{
    std::vector<bool> pages(m_pages.size());
    for (const Entry &entry : m_entries) {
        if (entry.id > highest)
            pages[entry.page] = true;
    }
    forgetPages(pages);
}

void RepairEvidence::forgetPages(const std::vector<bool> &pages)
{
    for (std::size_t page = 0; page < m_pages.size(); ++page) {
        if (pages[page])
            m_indexes[m_pages[page]].complete = false;
    }
    std::erase_if(m_entries, [&](const Entry &entry) { return pages[entry.page]; });
    collectIds();
}

bool RepairEvidence::isComplete() const
{
    return std::any_of(m_indexes.begin(), m_indexes.end(), [this](const Index &index) {
        return index.complete && (index.goesWithTable || checkEachOther());
    });
}

bool RepairEvidence::names(std::int64_t id) const
{
    return std::binary_search(m_ids.begin(), m_ids.end(), id);
}

bool RepairEvidence::knows(const SalvagedRow &row) const
{
    return m_known.contains(rowHash(row));
}

bool RepairEvidence::confirms(const SalvagedRow &row) const
{
    bool confirmed = false;
    for (std::size_t i = 0; i < m_indexes.size(); ++i) {
        const Index &index = m_indexes[i];
        const Entry wanted{entryHash(i, row, index.columns), row.id, 0};
        const bool isThere = std::binary_search(m_entries.begin(), m_entries.end(), wanted);
        if (index.complete && !isThere)
            return false;
        confirmed = confirmed || isThere;
    }
    return confirmed;
}

std::size_t RepairEvidence::entryHash(std::size_t index, const SalvagedRow &row,
                                      const std::vector<int> &columns)
{
    std::size_t hash = index * 1000003 + std::hash<std::int64_t>()(row.id);
    for (const int column : columns) {
        SalvagedValue value;
        if (column < 0)
            value = row.id;
        else if (std::size_t(column) < row.values.size())
            value = row.values[std::size_t(column)];
        hash = hash * 0x9E3779B97F4A7C15u + hashOf(value);
    }
    return hash;
}

std::size_t RepairEvidence::rowHash(const SalvagedRow &row)
{
    std::vector<int> all(row.values.size());
    std::iota(all.begin(), all.end(), 0);
    return entryHash(0, row, all);
}

} // namespace obelmark
