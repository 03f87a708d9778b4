// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QList>

class QWidget;

namespace obelmark {

/// The window with its title above, as it stands on the screen, and what is open over it: menus, drop-down
/// lists.
QImage pictureOf(QWidget &window, const QList<QWidget *> &over = {});

/// Writes a small PNG file: 256 colours, rarer ones replaced by the nearest. Answers whether it could.
bool savePicture(const QImage &picture, const QString &path);

} // namespace obelmark
