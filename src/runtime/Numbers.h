// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Money.h"
#include <QString>

namespace obelmark {

class RegionalSettings;

/// The numeric test: digits with one sign before or after, negative in parentheses, the currency symbol
/// before or after, thousands separators anywhere in the whole part, exponent, &H and &O literals (two's
/// complement in 16 bits when they fit, else in 32: &HFFFF is -1), blanks around. An ordinary blank stands
/// for a group separator that is a no-break space. A number too large for a double is none.
bool isNumeric(QStringView text, const RegionalSettings &regional);

/// Whole numbers, rounded half to even from the exact decimal value.
/// \throws TypeMismatch when the text is no number, Overflow when it is out of range
qint16 toInt16(QStringView text, const RegionalSettings &regional);
qint32 toInt32(QStringView text, const RegionalSettings &regional);
/// \throws TypeMismatch when the text is no number
double toDouble(QStringView text, const RegionalSettings &regional);

/// Plain decimal: no group separators, the region's decimal point, no trailing zeros, no blank in front. The
/// digits are 0 to 9 and the sign is "-" in every region: files hold this form.
QString plainNumber(qint64 number, const RegionalSettings &regional);
/// Of 15 significant digits. In exponent form ("1E+15") only from 1E+15 upwards and below 1E-15.
/// \throws Overflow when it is not finite
QString plainNumber(double number, const RegionalSettings &regional);
QString plainNumber(Money amount, const RegionalSettings &regional);

} // namespace obelmark
