// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/ReportGroups.h"

#include "runtime/NumberedError.h"
#include <algorithm>

namespace obelmark {

namespace {

constexpr ReportGroup groups[] = {
    {Lookup::Categories, u"Selected Categories", 35},
    {Lookup::Countries, u"Selected Country", 60},
    {Lookup::Mints, u"Selected Mint", 37},
    {Lookup::Formats, u"Selected Format", 63},
    {Lookup::Types, u"Selected Type", 62},
    {Lookup::Sellers, u"Selected Seller", 53},
};

} // namespace

std::span<const ReportGroup> reportGroups()
{
    return groups;
}

const ReportGroup &reportGroup(Lookup table)
{
    const auto *const found = std::ranges::find(groups, table, &ReportGroup::table);
    if (found == std::end(groups))
        throw runtimeError(SubscriptOutOfRange);
    return *found;
}

} // namespace obelmark
