// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/SetReader.h"

#include <QtEndian>
#include <algorithm>
#include <tuple>

namespace obelmark {

namespace {

/// Keys of a slice; a few milliseconds whatever the condition.
constexpr qint64 keysOfSlice = 4096;
/// Coins of a run: sorting it takes some milliseconds too.
constexpr size_t coinsOfRun = 16384;
constexpr double shareOfReading = 0.7;

} // namespace

SetReader::SetReader(const CoinSource &source)
    : m_source(source), m_next(source.nextKey(std::numeric_limits<qint32>::min())),
      m_last(source.lastKey().value_or(0)), m_runs(1)
{
}

double SetReader::progress() const
{
    if (m_next)
        return m_last > 0 ? shareOfReading * double(std::max<qint64>(*m_next, 0)) / double(m_last) : 0;
    return m_found > 0 ? shareOfReading + (1 - shareOfReading) * double(m_keys.size()) / double(m_found) : 1;
}

bool SetReader::read(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (m_next ? readSlice() : mergeSlice()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
    }
    return true;
}

bool SetReader::readSlice()
{
    const qint64 last = *m_next + keysOfSlice - 1;
    m_source.visit(*m_next, last, [&](std::string_view sortKey, qint32 key) {
        ++m_found;
        if (!m_source.isSorted()) {
            m_keys.push_back(key);
            return;
        }
        m_runs.back().add(sortKey, key);
    });
    // There may be wide gaps between the keys.
    m_next = last < m_last ? m_source.nextKey(last + 1) : std::nullopt;
    if (!m_next || m_runs.back().places.size() >= coinsOfRun)
        finishRun();
    return true;
}

void SetReader::Run::add(std::string_view sortKey, qint32 key)
{
    char beginning[sizeof(quint64)] = {};
    sortKey.copy(beginning, sizeof beginning);
    places.push_back(
        {qFromBigEndian<quint64>(beginning), quint32(sortKeys.size()), quint32(sortKey.size()), key});
    sortKeys += sortKey;
}

bool SetReader::Run::isBefore(const Place &place, const Run &other, const Place &otherPlace) const
{
    if (place.beginning != otherPlace.beginning)
        return place.beginning < otherPlace.beginning;
    const std::string_view mine = std::string_view(sortKeys).substr(place.begin, place.size);
    const std::string_view others =
        std::string_view(other.sortKeys).substr(otherPlace.begin, otherPlace.size);
    return std::tie(mine, place.key) < std::tie(others, otherPlace.key);
}

void SetReader::finishRun()
{
    Run &run = m_runs.back();
    std::ranges::sort(run.places, [&](const Place &a, const Place &b) { return run.isBefore(a, run, b); });
    if (!run.places.empty())
        m_heap.push_back(m_runs.size() - 1);
    if (m_next)
        m_runs.emplace_back();
    else
        std::ranges::make_heap(m_heap, [this](size_t a, size_t b) { return isBehind(a, b); });
}

bool SetReader::isBehind(size_t run, size_t other) const
{
    const Run &a = m_runs[run];
    const Run &b = m_runs[other];
    return b.isBefore(b.places[b.next], a, a.places[a.next]);
}

bool SetReader::mergeSlice()
{
    const auto isLower = [this](size_t a, size_t b) { return isBehind(a, b); };
    for (qint64 i = 0; i < keysOfSlice && !m_heap.empty(); ++i) {
        std::ranges::pop_heap(m_heap, isLower);
        Run &run = m_runs[m_heap.back()];
        m_keys.push_back(run.places[run.next++].key);
        if (run.next == run.places.size())
            m_heap.pop_back();
        else
            std::ranges::push_heap(m_heap, isLower);
    }
    return !m_heap.empty();
}

} // namespace obelmark
