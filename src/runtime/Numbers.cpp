// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Numbers.h"

#include "runtime/Decimal.h"
#include "runtime/NumberedError.h"
#include "runtime/RegionalSettings.h"
#include "runtime/Value.h"

#include <limits>

namespace obelmark {

bool isNumeric(QStringView text, const RegionalSettings &regional)
{
    return Decimal::fromText(text, regional).has_value();
}

static Decimal decimalFrom(QStringView text, const RegionalSettings &regional)
{
    const std::optional<Decimal> number = Decimal::fromText(text, regional);
    if (!number)
        throw runtimeError(TypeMismatch);
    return *number;
}

template<class Integer>
static Integer toInteger(QStringView text, const RegionalSettings &regional)
{
    using Limits = std::numeric_limits<Integer>;
    const std::optional<qint64> number = decimalFrom(text, regional).scaled(0);
    if (!number || *number < Limits::min() || *number > Limits::max())
        throw runtimeError(Overflow);
    return Integer(*number);
}

qint16 toInt16(QStringView text, const RegionalSettings &regional)
{
    return toInteger<qint16>(text, regional);
}

qint32 toInt32(QStringView text, const RegionalSettings &regional)
{
    return toInteger<qint32>(text, regional);
}

double toDouble(QStringView text, const RegionalSettings &regional)
{
    return decimalFrom(text, regional).toDouble().value();
}

QString plainNumber(qint64 number, const RegionalSettings &)
{
    return QString::number(number);
}

QString plainNumber(double number, const RegionalSettings &regional)
{
    return Decimal::fromDouble(number).toText(regional.decimalPoint());
}

QString plainNumber(Money amount, const RegionalSettings &regional)
{
    return Value(amount).toText().replace(u'.', regional.decimalPoint());
}

} // namespace obelmark
