// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/NameIndex.h"
#include <algorithm>

namespace obelmark {

namespace {

char16_t lower(QChar c)
{
    const char16_t unit = c.unicode();
    return unit >= u'A' && unit <= u'Z' ? char16_t(unit + (u'a' - u'A')) : unit;
}

} // namespace

bool sameName(QStringView a, QStringView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](QChar x, QChar y) { return lower(x) == lower(y); });
}

size_t NameIndex::Hash::operator()(QStringView name) const
{
    // FNV-1a, http://www.isthe.com/chongo/tech/comp/fnv/
    quint64 hash = 0xcbf29ce484222325;
    for (const QChar c : name)
        hash = (hash ^ lower(c)) * 0x100000001b3;
    return size_t(hash);
}

} // namespace obelmark
