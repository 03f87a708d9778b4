// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

namespace obelmark {

/// The letters that a small Latin letter is ordered beside though Unicode does not decompose it: "o" for "ø",
/// "ae" for "æ". Empty for all others. After the transliteration "Latin-ASCII" of the Unicode Common Locale
/// Data Repository, with the letters of Azerbaijani and of African languages that it leaves out. Files hold
/// folded texts: another entry here needs a migration that folds them anew.
QStringView baseLetters(char32_t letter);

} // namespace obelmark
