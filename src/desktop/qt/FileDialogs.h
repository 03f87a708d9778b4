// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace obelmark {

/// What Desktop::askSaveFile() and Desktop::askOpenFile() promise.
std::optional<QString> runSaveDialog(const QString &fileName, const QString &filter, QWidget *owner);
std::optional<QString> runOpenDialog(const QString &filter, QWidget *owner);

} // namespace obelmark
