// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "walk/Tables.h"

class QWidget;

namespace obelmark::walk {

/// What a field of any kind holds: its text, "1" or "0" for a mark, the key or nothing for a lookup list.
QString textOf(const QWidget &widget);
/// Puts a text in place of that of the focused field, as a keyboard for any script does.
void replaceText(const QString &text);
/// The captions of the buttons on screen, in the order of the alphabet, and what they should be.
QString visibleButtons(const QWidget &window);
QString buttonsIn(State state, bool hasOk);
/// A line that tells the difference, if there is one.
QString differ(const QString &what, const QString &is, const QString &shouldBe);

} // namespace obelmark::walk
