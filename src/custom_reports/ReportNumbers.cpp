// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportNumbers.h"

#include "runtime/Decimal.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include "runtime/RegionalSettings.h"
#include <algorithm>
#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int singleDigits = 7;

/// A sign, digits, at most one separator, digits; and nothing else.
struct PlainForm
{
    qsizetype separatorAt = -1;
};

std::optional<PlainForm> plainForm(QStringView text, QStringView separators)
{
    PlainForm form;
    bool anyDigit = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c >= u'0' && c <= u'9')
            anyDigit = true;
        else if (separators.contains(c) && form.separatorAt < 0)
            form.separatorAt = i;
        else if (i > 0 || (c != u'-' && c != u'+'))
            return {};
    }
    return anyDigit ? std::optional(form) : std::nullopt;
}

} // namespace

std::optional<float> singleFromText(const QString &text, const RegionalSettings &regional)
{
    if (!isNumeric(text, regional))
        return {};
    const float number = QByteArray::number(toDouble(text, regional), 'g', singleDigits).toFloat();
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString plainSingle(float number, const RegionalSettings &regional)
{
    return plainNumber(QByteArray::number(double(number), 'g', singleDigits).toDouble(), regional);
}

const RegionalSettings &fileSettings()
{
    static const RegionalSettings settings{QLocale(QLocale::English, QLocale::UnitedStates)};
    return settings;
}

std::optional<double> numberFromFile(QStringView text)
{
    const QString withPoint = text.toString().replace(u',', u'.');
    return isNumeric(withPoint, fileSettings()) ? std::optional(toDouble(withPoint, fileSettings()))
                                                : std::nullopt;
}

std::optional<int> wholeNumberFromFile(QStringView text, int least, int most)
{
    const auto number = Decimal::fromText(text.toString().replace(u',', u'.'), fileSettings());
    const auto whole = number ? number->scaled(0) : std::nullopt;
    return whole && *whole >= least && *whole <= most ? std::optional(int(*whole)) : std::nullopt;
}

QString numberTextToFile(const QString &text, const RegionalSettings &regional)
{
    if (const auto form = plainForm(text, regional.decimalPoint())) {
        QString withPoint = text;
        if (form->separatorAt >= 0)
            withPoint[form->separatorAt] = u'.';
        return withPoint;
    }
    const auto number = Decimal::fromText(text, regional);
    return number ? number->toText(u".") : text;
}

QString numberTextFromFile(const QString &text, const RegionalSettings &regional)
{
    const auto form = plainForm(text, u".,");
    if (!form || form->separatorAt < 0)
        return text;
    // In a file of another program "1,000" may be a thousand.
    const bool isGrouped = text[form->separatorAt] == u',' && regional.groupSeparator() == u"," &&
                           text.size() - form->separatorAt == 4;
    return isGrouped
               ? text
               : text.first(form->separatorAt) + regional.decimalPoint() + text.sliced(form->separatorAt + 1);
}

} // namespace obelmark
