// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// The name beside a file by what it is to be: "coin-damaged.mdb".
QString nameBeside(const QString &path, const QString &role);

/// A free one: "coin-damaged.mdb", "coin-damaged-2.mdb" and so on.
QString freeName(const QString &path, const QString &role);

} // namespace obelmark
