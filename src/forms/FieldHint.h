// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

namespace obelmark {

/// Marks a field whose text needs a second look: with a coloured frame and, for screen readers, with the
/// sentence as its description. An empty sentence takes the mark away.
void setFieldHint(QWidget &field, const QString &sentence);

} // namespace obelmark
