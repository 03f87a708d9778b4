// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "coins/CoinSource.h"

namespace obelmark {

/// Reads the keys of a set and puts them into order, a while at a time: stretches of keys are read and sorted
/// one by one, then merged.
class SetReader
{
public:
    explicit SetReader(const CoinSource &source);

    /// Answers whether all is done.
    bool read(std::chrono::milliseconds time);
    double progress() const;
    std::vector<qint32> takeKeys() { return std::move(m_keys); }

private:
    struct Place
    {
        quint64 beginning; ///< of its sort key: tells most coins apart without a look at the rest
        quint32 begin;     ///< of its sort key in the run
        quint32 size;
        qint32 key;
    };
    /// Some of the coins, in order.
    struct Run
    {
        void add(std::string_view sortKey, qint32 key);
        bool isBefore(const Place &place, const Run &other, const Place &otherPlace) const;

        std::string sortKeys;
        std::vector<Place> places;
        size_t next = 0; ///< the first that is not merged yet
    };

    bool readSlice();
    bool mergeSlice();
    void finishRun();
    /// Whether the next coin of one run stands behind that of another.
    bool isBehind(size_t run, size_t other) const;

    const CoinSource &m_source;
    std::optional<qint64> m_next; ///< key to be read; nothing when all are
    qint64 m_last;
    std::vector<Run> m_runs;
    std::vector<size_t> m_heap; ///< the runs that are not merged to their end, the lowest coin on top
    qint64 m_found = 0;
    std::vector<qint32> m_keys;
};

} // namespace obelmark
