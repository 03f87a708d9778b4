// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/CoinSet.h"

#include "coins/CoinSource.h"
#include "coins/SetReader.h"
#include "common/CollectionChanges.h"
#include "common/LookupTables.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Each takes as many look-ups as the number of coins has binary digits; beyond, reading all is no slower.
constexpr size_t mostTakenIn = 200;

} // namespace

CoinSet::CoinSet(Database &database, const CoinQuery &query)
    : m_source(std::make_unique<CoinSource>(database, query))
{
    readAnew();
}

CoinSet::~CoinSet() = default;

void CoinSet::readAnew()
{
    m_toTakeIn.clear();
    m_reader = std::make_unique<SetReader>(*m_source);
}

bool CoinSet::read(std::chrono::milliseconds time)
{
    if (!m_reader)
        return true;
    if (!m_reader->read(time))
        return false;
    m_keys = m_reader->takeKeys();
    m_reader.reset();
    takeIn(std::exchange(m_toTakeIn, {}));
    return isComplete();
}

bool CoinSet::isComplete() const
{
    return !m_reader;
}

double CoinSet::progress() const
{
    return m_reader ? m_reader->progress() : 1;
}

qsizetype CoinSet::rowOf(qint64 key) const
{
    const auto found = std::ranges::find(m_keys, key);
    return found == m_keys.end() ? -1 : found - m_keys.begin();
}

void CoinSet::apply(const Changes &changes)
{
    const auto touches = [&](const LookupTable &table) { return changes.touches(table.name); };
    if (changes.everything || (m_source->readsEntries() && std::ranges::any_of(lookupTables(), touches))) {
        readAnew();
        return;
    }
    std::vector<qint64> changed;
    for (const RowChange &row : changes.rows) {
        if (row.table.compare("Coin"_L1, Qt::CaseInsensitive) == 0)
            changed.push_back(row.key);
    }
    if (m_reader)
        m_toTakeIn.insert(m_toTakeIn.end(), changed.begin(), changed.end());
    else
        takeIn(std::move(changed));
}

void CoinSet::takeIn(std::vector<qint64> changed)
{
    std::ranges::sort(changed);
    const auto repeated = std::ranges::unique(changed);
    changed.erase(repeated.begin(), repeated.end());
    if (changed.size() > mostTakenIn) {
        readAnew();
        return;
    }
    std::erase_if(m_keys, [&](qint32 key) { return std::ranges::binary_search(changed, key); });
    for (const qint64 key : changed) {
        const auto place = m_source->place(key, CoinSource::Which::OfTheSet);
        if (!place)
            continue;
        const auto isBefore = [&](qint32 other, const SortPlace &wanted) {
            const auto placeOfOther = m_source->place(other, CoinSource::Which::Any);
            return placeOfOther && *placeOfOther < wanted;
        };
        m_keys.insert(std::lower_bound(m_keys.begin(), m_keys.end(), *place, isBefore), place->key);
    }
}

} // namespace obelmark
