// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

namespace obelmark {

/// What keeps a user without sight, without a mouse or with large letters from using the window that is on
/// screen and active, on any page of its tabs; each naming its control. \a fontSize is how many times larger
/// than usual the letters are.
QStringList complaintsAbout(QWidget &window, int fontSize);

} // namespace obelmark
