// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// The catalogue sort key, always 20 characters: the digits that stand before the first "-" of the catalogue
/// number, right-justified with leading blanks (the first 20 when there are more). It makes KM 200 sort
/// before KM 1000.
QString MakeCatSort(const QString &catalogueNumber);

} // namespace obelmark
