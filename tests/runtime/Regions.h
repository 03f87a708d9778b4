// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/NumberedError.h"
#include "runtime/RegionalSettings.h"

#include <QtTest>

namespace obelmark {

using namespace Qt::StringLiterals;

/// "C" or a name such as "de_DE".
inline RegionalSettings region(const QString &name)
{
    return RegionalSettings(QLocale(name));
}

inline QStringList testedRegions()
{
    return {QStringLiteral("en_US"), QStringLiteral("de_DE"), QStringLiteral("fr_FR"),
            QStringLiteral("ja_JP"), QStringLiteral("C")};
}

inline QList<QLocale> everyLocale()
{
    return QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
}

/// The number of the error that the step raises; 0 when it raises none.
template<class Step>
int errorNumber(Step step)
{
    try {
        step();
    } catch (const NumberedError &error) {
        return error.number();
    }
    return 0;
}

} // namespace obelmark
