// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

class Desktop;

/// Asks before an existing file is replaced. Answers true when the user wants it kept, false when there is no
/// such file or it may be replaced. \a kind is what the question calls it.
bool ConfirmReplaceFile(Desktop &desktop, const QString &path, const QString &kind = QStringLiteral("file"));

} // namespace obelmark
