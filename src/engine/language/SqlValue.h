// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/ColumnType.h"
#include "runtime/Value.h"
#include <SQLiteCpp/Statement.h>
#include <string>
#include <string_view>
#include <variant>

namespace obelmark {

template<class Bytes>
struct BlobOf
{
    Bytes bytes;
};

/// A value as SQLite keeps it: null, whole number, floating number, UTF-8 text or blob.
using SqlValue = std::variant<std::monostate, qint64, double, std::string, BlobOf<std::string>>;
/// The same, looked at in a result row and good until the row is left.
using SqlCell = std::variant<std::monostate, qint64, double, std::string_view, BlobOf<std::string_view>>;

SqlCell cellAt(const SQLite::Statement &statement, int column);
SqlValue copyOf(const SqlCell &cell);
void bindValue(SQLite::Statement &statement, int parameter, const SqlValue &value);

/// What a column of that type holds; null where another tool has written what such a column cannot hold.
Value toValue(const SqlCell &cell, const ColumnType &type);
/// The stored form of a value.
SqlValue toSqlValue(const Value &value);

/// \throws DataTypeConversion, FieldTooSmall, Overflow when a column of that type cannot hold the value
void checkFits(const Value &value, const ColumnType &type);

} // namespace obelmark
