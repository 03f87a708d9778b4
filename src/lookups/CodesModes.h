#pragma once

namespace obelmark {

struct SharedState;

/// What sets the maintenance of one lookup table apart from that of the other six.
struct LookupMode
{
    const char16_t *sql;       ///< of the recordset that is kept
    const char16_t *IDField;   ///< its key column
    const char16_t *DescField; ///< its description column
    const char16_t *caption;   ///< of the window
    const char16_t *label;     ///< of the description
    int helpTopic;
    const char16_t *deleteQuestion;
    const char16_t *deleteTitle;
    const char16_t *inUseQuery; ///< the coins of an entry, to be completed by its key
    const char16_t *inUseMessage;
    const char16_t *noun;         ///< what the user is asked to find
    bool SharedState::*reload;    ///< tells the main window that its list is stale
    bool hasSellerFields = false; ///< phone, favourite mark and notes
};

/// \a mode is the CodesMode of the shared state, 1 to 7.
const LookupMode &lookupMode(int mode);

} // namespace obelmark
