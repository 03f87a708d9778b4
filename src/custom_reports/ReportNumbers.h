// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <optional>

namespace obelmark {

class RegionalSettings;

/// A number of single precision, of the seven significant digits that such a number shows. Nothing when the
/// text is no number or too large a one.
std::optional<float> singleFromText(const QString &text, const RegionalSettings &regional);
/// Plain decimal of seven significant digits, with the region's decimal point: "1123.2".
QString plainSingle(float number, const RegionalSettings &regional);

/// Report files go from one machine to another: numbers stand in them with a decimal point whatever the
/// region, and are read with a point or a comma and without group separators. These are the settings that
/// numbers in files are written with.
const RegionalSettings &fileSettings();
/// Nothing when the text is no number.
std::optional<double> numberFromFile(QStringView text);
/// The number rounded to a whole one, half to even; nothing unless it lies from \a least to \a most.
std::optional<int> wholeNumberFromFile(QStringView text, int least, int most);

/// A number that was typed in the regional form, kept digit for digit, in the form of files and back. What is
/// no number stays as it is.
QString numberTextToFile(const QString &text, const RegionalSettings &regional);
QString numberTextFromFile(const QString &text, const RegionalSettings &regional);

} // namespace obelmark
