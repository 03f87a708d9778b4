// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/SharedState.h"

#include <utility>

namespace obelmark {

SharedState::SharedState(Desktop &theDesktop, RegionalSettings theRegional)
    : desktop(theDesktop), regional(std::move(theRegional))
{
}

// A recordset goes before the database that it lies on.
SharedState::~SharedState()
{
    CoinRecordset.reset();
    CoinDatabase.reset();
}

} // namespace obelmark
