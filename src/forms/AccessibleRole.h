// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAccessible>

class QWidget;

namespace obelmark {

/// Tells screen readers what a widget that paints itself is; else they take it for a part of the frame.
void setAccessibleRole(QWidget &widget, QAccessible::Role role);

} // namespace obelmark
