// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/LookupTables.h"

namespace obelmark {

/// What the maintenance of one lookup table says that the others do not.
struct LookupMode
{
    Lookup table;
    const char16_t *caption; ///< of the window
    const char16_t *label;   ///< of the description
    int helpTopic;
    const char16_t *deleteQuestion;
    const char16_t *deleteTitle;
    const char16_t *inUseMessage;
    const char16_t *noun; ///< what the user is asked to find
};

const LookupMode &lookupMode(Lookup table);

} // namespace obelmark
