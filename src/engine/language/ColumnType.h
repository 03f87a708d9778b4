// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

namespace obelmark {

enum class ColumnKind {
    Any, ///< an expression, or a declared type that is none of ours: as SQLite keeps the value
    Int16,
    Int32,
    Boolean,
    Real,
    Money,
    Date,
    Text,
};

/// What the declared type of a column tells.
struct ColumnType
{
    ColumnKind kind = ColumnKind::Any;
    qsizetype maxLength = 0; ///< of a text in characters; 0: no limit
};

ColumnType columnTypeFromDeclaration(QStringView declaration);

} // namespace obelmark
