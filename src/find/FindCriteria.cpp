// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "find/FindCriteria.h"

#include "runtime/Dates.h"
#include "runtime/Decimal.h"
#include "runtime/Numbers.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr FindOperator textOperators[] = {
    {u"Contains", u" like \"*", u"*\""},
    {u"Begins With", u" like \"", u"*\""},
    {u"Ends With", u" like \"*", u"\""},
    {u"Equals", u" like \"", u"\""},
};

constexpr FindOperator comparisons[] = {
    {u"=", u" = ", u""}, {u"not =", u" <> ", u""}, {u"<", u" < ", u""},
    {u">", u" > ", u""}, {u"<=", u" <= ", u""},    {u">=", u" >= ", u""},
};

constexpr FindOperator yesNoValues[] = {
    {u"True", u" = true", u""},
    {u"False", u" is not true", u""}, // a mark that another tool has left null is none
};

bool isOfLookupTable(const CatalogueField &field)
{
    return !field.linkfield.isEmpty() && !field.FileName.isEmpty();
}

QString patternText(QString typed)
{
    // No text of the file holds a null character, and SQL ends at it.
    return typed.remove(QChar(QChar::Null)).replace(u"\""_s, u"\"\""_s);
}

QString numberText(const QString &typed, const RegionalSettings &regional)
{
    return Decimal::fromText(typed, regional)->toText(u".");
}

/// Year first: the engine reads that in one way only.
QString dateText(const QString &typed, const RegionalSettings &regional)
{
    return u'#' + isoText(toDate(typed, regional)).replace(u'T', u' ') + u'#';
}

QString valueText(FindKind kind, const QString &typed, const RegionalSettings &regional)
{
    switch (kind) {
    case FindKind::Text:
        return patternText(typed);
    case FindKind::Number:
        return numberText(typed, regional);
    case FindKind::Date:
        return dateText(typed, regional);
    case FindKind::Entry:
    case FindKind::YesNo:
        return {};
    }
    Q_UNREACHABLE();
}

} // namespace

FindKind findKind(const CatalogueField &field)
{
    switch (field.datatype) {
    case FieldKind::Text:
        return isOfLookupTable(field) ? FindKind::Entry : FindKind::Text;
    case FieldKind::Number:
        return FindKind::Number;
    case FieldKind::Date:
    case FieldKind::Time:
        return FindKind::Date;
    case FieldKind::YesNo:
        return FindKind::YesNo;
    }
    Q_UNREACHABLE();
}

std::span<const FindOperator> findOperators(FindKind kind)
{
    switch (kind) {
    case FindKind::Text:
        return textOperators;
    case FindKind::Number:
    case FindKind::Date:
        return comparisons;
    case FindKind::YesNo:
        return yesNoValues;
    case FindKind::Entry:
        return {};
    }
    Q_UNREACHABLE();
}

std::optional<FindRefusal> refuseValue(const CatalogueField &field, const FindValue &value,
                                       const RegionalSettings &regional)
{
    switch (findKind(field)) {
    case FindKind::Number:
        if (!isNumeric(value.text, regional))
            return FindRefusal{u"You must enter a valid number for this field."_s,
                               u"Search Value Not Numeric"_s, true};
        break;
    case FindKind::Date:
        if (!isDate(value.text, regional))
            return FindRefusal{u"You must enter a valid date for this field."_s, u"Search Value Not Date"_s,
                               true};
        break;
    case FindKind::Entry:
        if (!value.key)
            return FindRefusal{u"You must select the value to find from the second list."_s,
                               u"No Value Selected"_s, false};
        break;
    case FindKind::Text:
    case FindKind::YesNo:
        break;
    }
    return {};
}

QString findCriteria(const CatalogueField &field, const FindValue &value, const RegionalSettings &regional)
{
    const FindKind kind = findKind(field);
    if (kind == FindKind::Entry)
        return u"%1 = %2"_s.arg(field.mainKey(), QString::number(value.key.value()));

    const FindOperator &op = findOperators(kind)[size_t(value.operatorIndex)];
    const QString condition = field.fieldname + QString::fromUtf16(op.before) +
                              valueText(kind, value.text, regional) + QString::fromUtf16(op.after);
    if (!isOfLookupTable(field))
        return condition;
    // The coins have no such column: those are meant whose entry meets the condition.
    return u"%1 in (select %2.%3 from %2 where %2.%4)"_s.arg(field.mainKey(), field.FileName,
                                                             field.lookupKey(), condition);
}

QString entriesQuery(const CatalogueField &field)
{
    const QString query =
        u"select %1 as id, %2 as descr from %3"_s.arg(field.lookupKey(), field.fieldname, field.FileName);
    return field.ismemo ? query : query + u" order by "_s + field.fieldname;
}

} // namespace obelmark
