// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <vector>

namespace obelmark {

/// The measures of a page's body, in twips.
struct BodyMeasures
{
    double height = 0;
    double lineHeight = 1;
    double padding = 0; ///< above the first and below the last line of a row, together

    double rowHeight(int lines) const { return lines * lineHeight + padding; }
    /// How many lines of a row fit into that height.
    int linesIn(double space) const { return int((space - padding) / lineHeight); }
};

/// Deals rows out to pages as they come. A row that does not fit begins the next page; only one that is
/// taller than a page is divided, by its lines.
class PageBreaker
{
public:
    /// Where a page begins: at that line of that row.
    struct Start
    {
        quint32 row;
        quint32 line;

        auto operator<=>(const Start &) const = default;
    };

    /// Begins anew: one page, with no rows. There is room for a line at least, whatever the measures say.
    void start(const BodyMeasures &measures);
    /// The next row.
    void add(int lines);

    const BodyMeasures &measures() const { return m_measures; }
    qsizetype pageCount() const { return qsizetype(m_starts.size()); }
    Start pageStart(qsizetype page) const { return m_starts[std::size_t(page)]; }
    /// The end of a page: where the next one begins or, for the last page, the row to come.
    Start pageEnd(qsizetype page) const;
    /// The page with that line of that row.
    qsizetype pageOf(Start place) const;

private:
    void newPage(quint32 line);

    BodyMeasures m_measures;
    std::vector<Start> m_starts;
    double m_used = 0;
    quint32 m_rows = 0;
};

} // namespace obelmark
