// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

namespace obelmark {

class Stage;

/// One picture of the help: its file, and what brings up the window and takes the picture.
struct Scene
{
    const char *file;
    QImage (*take)(Stage &stage);
};

/// All of them.
extern const std::initializer_list<Scene> scenes;

} // namespace obelmark
