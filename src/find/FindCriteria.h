// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/Catalogue.h"
#include <QString>
#include <optional>
#include <span>

namespace obelmark {

class RegionalSettings;

/// How a field is searched.
enum class FindKind {
    Text,   ///< by a pattern
    Entry,  ///< by an entry of its lookup table
    Number, ///< by comparison with a number
    Date,   ///< by comparison with a date, a time or both
    YesNo,
};
FindKind findKind(const CatalogueField &field);

/// An operator as the user reads it, and the criteria around the value: column, before, value, after.
struct FindOperator
{
    const char16_t *caption;
    const char16_t *before;
    const char16_t *after;
};
/// In the order in which they are listed; an entry has none, it is simply equal.
std::span<const FindOperator> findOperators(FindKind kind);

/// What is searched for.
struct FindValue
{
    int operatorIndex = 0;          ///< among findOperators()
    QString text = {};              ///< as typed: pattern, number or date, by the user's region
    std::optional<qint64> key = {}; ///< of the chosen entry
};

/// Why a value cannot be searched for, for the user.
struct FindRefusal
{
    QString text;
    QString title;
    bool isText; ///< it is the typed text that has to be changed
};
std::optional<FindRefusal> refuseValue(const CatalogueField &field, const FindValue &value,
                                       const RegionalSettings &regional);

/// The criteria for the coins, of a value that is not refused. Whatever was typed stays a value: quotes are
/// doubled, numbers and dates written as the engine reads them. In a pattern "*", "?", "#" and "[" keep their
/// meaning.
QString findCriteria(const CatalogueField &field, const FindValue &value, const RegionalSettings &regional);

/// The query for the entries that the field can be searched by, as "id" and "descr".
QString entriesQuery(const CatalogueField &field);

} // namespace obelmark
