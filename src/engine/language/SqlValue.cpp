// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/SqlValue.h"
#include "engine/language/EngineError.h"
#include <SQLiteCpp/Column.h>
#include <limits>

namespace obelmark {

namespace {

template<class Number>
bool fitsInto(qint64 number)
{
    return number >= std::numeric_limits<Number>::min() && number <= std::numeric_limits<Number>::max();
}

/// Whether a column of that kind holds the number. The counter of a table is 32 bits wide too.
bool isInRange(qint64 number, ColumnKind kind)
{
    return kind == ColumnKind::Int16 ? fitsInto<qint16>(number) : fitsInto<qint32>(number);
}

Value fromInteger(qint64 number, ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Int16:
    case ColumnKind::Int32:
        return isInRange(number, kind) ? Value(number) : Value();
    case ColumnKind::Boolean:
        return number != 0;
    case ColumnKind::Money:
        return Money::fromTenThousandths(number);
    case ColumnKind::Real:
        return double(number);
    case ColumnKind::Any:
        return number;
    case ColumnKind::Date:
    case ColumnKind::Text:
        break;
    }
    return {};
}

Value fromText(std::string_view utf8, ColumnKind kind)
{
    const QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
    if (kind == ColumnKind::Text || kind == ColumnKind::Any)
        return text;
    if (kind == ColumnKind::Date) {
        if (const auto date = fromIsoText(text))
            return *date;
    }
    return {};
}

qsizetype lengthInCharacters(QStringView text)
{
    return text.size() - std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLowSurrogate(); });
}

} // namespace

SqlCell cellAt(const SQLite::Statement &statement, int column)
{
    const SQLite::Column cell = statement.getColumn(column);
    const auto bytes = [&cell](const void *data) {
        return std::string_view(static_cast<const char *>(data), size_t(cell.getBytes()));
    };
    const int type = cell.getType();
    if (type == SQLite::INTEGER)
        return qint64(cell.getInt64());
    if (type == SQLite::FLOAT)
        return cell.getDouble();
    if (type == SQLite::TEXT)
        return bytes(cell.getText());
    if (type == SQLite::BLOB)
        return BlobOf<std::string_view>{bytes(cell.getBlob())};
    return {};
}

SqlValue copyOf(const SqlCell &cell)
{
    if (const auto *number = std::get_if<qint64>(&cell))
        return *number;
    if (const auto *number = std::get_if<double>(&cell))
        return *number;
    if (const auto *text = std::get_if<std::string_view>(&cell))
        return std::string(*text);
    if (const auto *blob = std::get_if<BlobOf<std::string_view>>(&cell))
        return BlobOf<std::string>{std::string(blob->bytes)};
    return {};
}

void bindValue(SQLite::Statement &statement, int parameter, const SqlValue &value)
{
    if (const auto *number = std::get_if<qint64>(&value))
        statement.bind(parameter, int64_t(*number));
    else if (const auto *real = std::get_if<double>(&value))
        statement.bind(parameter, *real);
    else if (const auto *text = std::get_if<std::string>(&value))
        statement.bind(parameter, *text);
    else if (const auto *blob = std::get_if<BlobOf<std::string>>(&value))
        statement.bind(parameter, static_cast<const void *>(blob->bytes.data()), int(blob->bytes.size()));
    else
        statement.bind(parameter);
}

Value toValue(const SqlCell &cell, const ColumnType &type)
{
    if (const auto *number = std::get_if<qint64>(&cell))
        return fromInteger(*number, type.kind);
    if (const auto *text = std::get_if<std::string_view>(&cell))
        return fromText(*text, type.kind);
    if (const auto *number = std::get_if<double>(&cell)) {
        if (type.kind == ColumnKind::Real || type.kind == ColumnKind::Any)
            return *number;
        if (type.kind == ColumnKind::Boolean)
            return *number != 0;
    }
    return {};
}

SqlValue toSqlValue(const Value &value)
{
    if (const auto *yes = value.as<bool>())
        return qint64(*yes);
    if (const auto *number = value.as<qint64>())
        return *number;
    if (const auto *number = value.as<double>())
        return *number;
    if (const auto *amount = value.as<Money>())
        return amount->tenThousandths();
    if (const auto *date = value.as<Date>())
        return isoText(*date).toStdString();
    if (const auto *text = value.as<QString>())
        return text->toStdString();
    return {};
}

void checkFits(const Value &value, const ColumnType &type)
{
    const auto mustBe = [](bool right) {
        if (!right)
            throw EngineError(DataTypeConversion);
    };
    if (value.isNull())
        return;
    switch (type.kind) {
    case ColumnKind::Any:
        break;
    case ColumnKind::Int16:
    case ColumnKind::Int32:
        mustBe(value.is<qint64>());
        if (!isInRange(*value.as<qint64>(), type.kind))
            throw EngineError(int(Overflow), runtimeError(Overflow).description());
        break;
    case ColumnKind::Boolean:
        mustBe(value.is<bool>());
        break;
    case ColumnKind::Real:
        mustBe(value.is<double>() || value.is<qint64>());
        break;
    case ColumnKind::Money:
        mustBe(value.is<Money>());
        break;
    case ColumnKind::Date:
        mustBe(value.is<Date>());
        break;
    case ColumnKind::Text:
        mustBe(value.is<QString>());
        if (type.maxLength > 0 && lengthInCharacters(*value.as<QString>()) > type.maxLength)
            throw EngineError(FieldTooSmall);
        break;
    }
}

} // namespace obelmark
