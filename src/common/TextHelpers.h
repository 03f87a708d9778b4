// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// The \a n-th field, counted from 1, of the text split at the delimiter; for n = 1 the text up to the first
/// delimiter (the whole text when there is none). Empty when there are fewer fields.
QString GetField(const QString &text, QChar delimiter, int n);

/// The number of fields that the text splits into at the delimiter; 0 for an empty text.
int CountFields(const QString &text, QChar delimiter);

/// The text right-justified in \a width characters with leading blanks; unchanged when it is already as long.
QString PadLeft(const QString &text, int width);

/// The path of \a name in \a folder (which ends with "/"), in whatever letter case it stands there; the name
/// as given when there is no such entry. Collections come from systems that do not tell the cases apart.
QString pathInAnyCase(const QString &folder, const QString &name);

} // namespace obelmark
