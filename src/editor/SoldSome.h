// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

class CoinFields;
class frmMain;
struct SharedState;

/// Records that some coins of the lot on screen have been sold, as many as the user says: marks the whole lot
/// sold, or splits off a sold record dated today. Errors go to the shared error handler. Answers whether the
/// lot on screen is to be shown again.
bool sellSome(const CoinFields &fields, SharedState &shared, const frmMain &window);

} // namespace obelmark
