// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>
#include <unordered_map>

namespace obelmark {

/// Whether two names of tables or columns are the same: letter case does not matter, of ASCII letters only,
/// as in SQLite.
bool sameName(QStringView a, QStringView b);

/// Finds the position that belongs to a name without regard to letter case. Of equal names the first counts.
class NameIndex
{
public:
    void add(const QString &name, int position) { m_positions.try_emplace(name, position); }
    /// -1 when there is no such name.
    int find(QStringView name) const
    {
        const auto it = m_positions.find(name);
        return it == m_positions.end() ? -1 : it->second;
    }

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(QStringView name) const;
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(QStringView a, QStringView b) const { return sameName(a, b); }
    };

    std::unordered_map<QString, int, Hash, Equal> m_positions;
};

} // namespace obelmark
