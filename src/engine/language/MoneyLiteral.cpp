// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/MoneyLiteral.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

QString inTenThousandths(QStringView number)
{
    // Beyond this many zeros SQLite takes a number as infinite anyway.
    constexpr qsizetype mostZeros = 400;

    qsizetype exponentAt = number.indexOf(u'e', 0, Qt::CaseInsensitive);
    if (exponentAt < 0)
        exponentAt = number.size();
    bool exponentFits = true;
    const QStringView exponentText = number.sliced(exponentAt);
    qsizetype shift = exponentText.isEmpty() ? 0 : exponentText.sliced(1).toInt(&exponentFits);
    if (!exponentFits)
        shift = exponentText.contains(u'-') ? -number.size() : mostZeros;

    QString digits = number.first(exponentAt).toString();
    const qsizetype point = digits.indexOf(u'.');
    if (point >= 0) {
        digits.remove(point, 1);
        shift -= digits.size() - point;
    }
    shift += 4;
    digits.remove(0, std::find_if(digits.cbegin(), digits.cend(), [](QChar c) { return c != u'0'; }) -
                         digits.cbegin());
    if (digits.isEmpty())
        return u"0"_s;
    if (shift >= 0)
        return digits + QString(std::min(shift, mostZeros), u'0');

    const qsizetype wholeDigits = std::max<qsizetype>(0, digits.size() + shift);
    const QString whole = wholeDigits > 0 ? digits.first(wholeDigits) : u"0"_s;
    const bool exact = QStringView(digits).sliced(wholeDigits).count(u'0') == digits.size() - wholeDigits;
    return exact ? whole : whole + ".5"_L1;
}

} // namespace obelmark
