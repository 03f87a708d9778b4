// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PageBreaker.h"

#include <algorithm>

namespace obelmark {

/// A row that is to be divided does not begin with fewer lines than this at the foot of a page.
static constexpr int fewestLinesAtFoot = 2;

void PageBreaker::start(const BodyMeasures &measures)
{
    m_measures = measures;
    m_measures.height = std::max(measures.height, measures.rowHeight(1));
    m_starts.assign(1, {0, 0});
    m_used = 0;
    m_rows = 0;
}

void PageBreaker::newPage(quint32 line)
{
    m_starts.push_back({m_rows, line});
    m_used = 0;
}

void PageBreaker::add(int lines)
{
    const bool isEmptyPage = m_used <= 0;
    double height = m_measures.rowHeight(lines);
    if (m_used + height > m_measures.height) {
        int room = m_measures.linesIn(m_measures.height - m_used);
        const bool isDivided = height > m_measures.height;
        if (!isEmptyPage && (!isDivided || room < fewestLinesAtFoot)) {
            newPage(0);
            room = m_measures.linesIn(m_measures.height);
        }
        int line = 0;
        while (isDivided && lines - line > room) {
            line += room;
            newPage(quint32(line));
            room = m_measures.linesIn(m_measures.height);
        }
        height = m_measures.rowHeight(lines - line);
    }
    m_used += height;
    ++m_rows;
}

PageBreaker::Start PageBreaker::pageEnd(qsizetype page) const
{
    return page + 1 < pageCount() ? pageStart(page + 1) : Start{m_rows, 0};
}

qsizetype PageBreaker::pageOf(Start place) const
{
    return std::ranges::upper_bound(m_starts, place) - m_starts.begin() - 1;
}

} // namespace obelmark
