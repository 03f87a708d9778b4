// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/Catalogue.h"
#include "runtime/Money.h"
#include "runtime/Value.h"
#include <QString>

namespace obelmark {

class RegionalSettings;

/// A field's value as a report shows it.
QString cellText(const Value &value, FieldKind kind, bool isCurrency, const RegionalSettings &regional);

/// A column's running total: exact for as long as the values are money and their sum fits.
class ColumnTotal
{
public:
    /// What is no number adds nothing.
    void add(const Value &value);
    QString text(bool isCurrency, const RegionalSettings &regional) const;

private:
    Money m_money;
    double m_number = 0; ///< of what is not in m_money
};

} // namespace obelmark
