// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// The form in which texts are compared and ordered: case-folded, compatibility-decomposed, combining marks
/// dropped. Its UTF-8 bytes in binary order put blanks before digits before letters, letter case never
/// matters, and an accented letter stands beside its base letter, also one that is a letter of its own for
/// Unicode: "ø" beside "o".
QString foldText(QStringView text);

} // namespace obelmark
