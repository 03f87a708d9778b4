// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/LookupTables.h"

namespace obelmark {

/// What sets the grouped coin list by one lookup table apart from that by another.
struct ReportGroup
{
    Lookup table;
    // The selection dialog
    const char16_t *optSelected;
    int helpTopic;
};

/// All of them, in the order of the Reports menu.
std::span<const ReportGroup> reportGroups();
/// \throws SubscriptOutOfRange when there is none of that table
const ReportGroup &reportGroup(Lookup table);

} // namespace obelmark
