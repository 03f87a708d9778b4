#pragma once

#include <QtGlobal>
#include <span>

namespace obelmark {

/// What sets the grouped coin list by one lookup table apart from that by another.
struct ReportGroup
{
    qint16 mode; ///< a code of SharedState::CodesMode
    const char16_t *title;
    const char16_t *heading;   ///< of the group's column
    const char16_t *DescField; ///< the table's description column
    const char16_t *KeyField;  ///< the table's key column

    // The selection dialog
    const char16_t *caption;
    const char16_t *optAll;
    const char16_t *optSelected;
    const char16_t *listQuery;
    int helpTopic;

    const char16_t *query;     ///< of the report, up to its condition
    const char16_t *condition; ///< that adds one entry, to be completed by its key
    const char16_t *order;
};

/// All of them, in the order of the Reports menu.
std::span<const ReportGroup> reportGroups();
/// \throws SubscriptOutOfRange when there is none of that mode
const ReportGroup &reportGroup(int mode);

} // namespace obelmark
