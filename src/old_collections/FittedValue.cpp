// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/FittedValue.h"

#include "engine/language/SqlValue.h"
#include "runtime/NumberedError.h"
#include "runtime/RegionalSettings.h"
#include <QLocale>

namespace obelmark {

static std::optional<Value> toMoney(const Value &value)
{
    static const RegionalSettings plain(QLocale::c());
    if (value.is<Money>())
        return value;
    if (!value.is<qint64>() && !value.is<double>())
        return {};
    return Money::fromText(value.toText(), plain);
}

std::optional<Value> fitted(const Value &value, const ColumnType &type)
{
    if (value.isNull())
        return value;
    try {
        switch (type.kind) {
        case ColumnKind::Text:
            return Value(value.toText());
        case ColumnKind::Money:
            return toMoney(value);
        case ColumnKind::Date:
            return value.is<Date>() ? std::optional(value) : std::nullopt;
        case ColumnKind::Boolean:
            return Value(value.toBool());
        case ColumnKind::Int16:
        case ColumnKind::Int32: {
            const Value number(value.toInt());
            checkFits(number, type);
            return number;
        }
        case ColumnKind::Real:
        case ColumnKind::Any:
            return value;
        }
    } catch (const NumberedError &) {
        // it does not fit
    }
    return {};
}

} // namespace obelmark
