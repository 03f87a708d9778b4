// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportQuery.h"

#include "custom_reports/ReportDefinition.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include "runtime/Decimal.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A plain name as it is, any other in brackets.
QString sqlName(const QString &name)
{
    const auto isPlain = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
    };
    return std::ranges::all_of(name, isPlain) && !name.isEmpty() && !name.front().isDigit()
               ? name
               : u'[' + name + u']';
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', "''"_L1) + u'\'';
}

/// Bounds are kept as they were typed; a file may bring anything.
QString sqlNumber(const QString &text, const RegionalSettings &regional)
{
    const auto number = Decimal::fromText(text, regional);
    if (!number)
        throw EngineError(SyntaxError, text);
    return number->toText(u".");
}

/// Month first, whatever the region.
QString dateText(Date date)
{
    const QDate day = date.date();
    return u"%1/%2/%3"_s.arg(day.month()).arg(day.day()).arg(day.year(), 4, 10, QLatin1Char('0'));
}

/// A time of day alone is one of day 0.
QString timeText(Date value)
{
    const QTime time = value.time();
    const QString clock = u"%1:%2:%3 %4"_s.arg((time.hour() + 11) % 12 + 1)
                              .arg(time.minute(), 2, 10, QLatin1Char('0'))
                              .arg(time.second(), 2, 10, QLatin1Char('0'))
                              .arg(time.hour() < 12 ? "AM"_L1 : "PM"_L1);
    return value.date() == Date{}.date() ? clock : dateText(value) + u' ' + clock;
}

class QueryBuilder
{
public:
    QueryBuilder(const ReportDefinition &report, ColumnNames names, const RegionalSettings &regional)
        : m_report(report), m_names(names), m_regional(regional),
          m_from(sqlName(report.SpecUseWith)), m_tables{report.SpecUseWith}
    {
    }

    QString build()
    {
        for (const CatalogueField *field : m_report.reportFields()) {
            if (!m_report.optionsOf(*field).HideField)
                m_select << column(*field);
            addConditions(*field);
            join(*field);
        }
        QStringList order;
        for (const int position : {m_report.sort1, m_report.sort2}) {
            if (const CatalogueField *field = m_report.sortField(position)) {
                join(*field);
                order << column(*field);
            }
        }
        QString sql = u"Select "_s + m_select.join(u", "_s) + u" from "_s + m_from;
        if (!m_conditions.isEmpty())
            sql += u" where "_s + m_conditions.sliced(qsizetype(std::size(" and")) - 1);
        if (!order.isEmpty())
            sql += u" order by "_s + order.join(u", "_s);
        return sql;
    }

private:
    bool isOfMainTable(const CatalogueField &field) const
    {
        return field.FileName.isEmpty() || sameName(field.FileName, m_report.SpecUseWith);
    }

    QString column(const CatalogueField &field) const
    {
        const QString name = sqlName(field.fieldname);
        const QString &table = isOfMainTable(field) ? m_report.SpecUseWith : field.FileName;
        return m_names == ColumnNames::Plain ? name : sqlName(table) + u'.' + name;
    }

    void addCondition(const CatalogueField &field, const QString &comparison)
    {
        m_conditions += u" and "_s + column(field) + comparison;
    }

    void addConditions(const CatalogueField &field)
    {
        const FieldOptions &options = m_report.optionsOf(field);
        switch (field.datatype) {
        case FieldKind::Text:
            if (!options.StartsWith.isEmpty())
                addCondition(field, u" like "_s + quoted(options.StartsWith + u'*'));
            break;
        case FieldKind::Number:
            if (!options.LessThan.isEmpty())
                addCondition(field, u" < "_s + sqlNumber(options.LessThan, m_regional));
            if (!options.GreaterThan.isEmpty())
                addCondition(field, u" > "_s + sqlNumber(options.GreaterThan, m_regional));
            break;
        case FieldKind::Date:
            addSpan(field, options, dateText);
            break;
        case FieldKind::Time:
            addSpan(field, options, timeText);
            break;
        case FieldKind::YesNo:
            if (options.SelTrue)
                addCondition(field, {});
            if (options.SelFalse)
                addCondition(field, u" is not true"_s); // null counts as false
            break;
        }
    }

    void addSpan(const CatalogueField &field, const FieldOptions &options, QString (*text)(Date))
    {
        if (options.StartValue != Date{})
            addCondition(field, u" >= #%1#"_s.arg(text(options.StartValue)));
        if (options.EndValue != Date{})
            addCondition(field, u" <= #%1#"_s.arg(text(options.EndValue)));
    }

    void join(const CatalogueField &field)
    {
        const auto isThere = [&](const QString &table) { return sameName(table, field.FileName); };
        if (isOfMainTable(field) || std::ranges::any_of(m_tables, isThere))
            return;
        m_tables << field.FileName;
        const QString table = sqlName(field.FileName);
        m_from = u"("_s + m_from + u" left join "_s + table + u" on "_s + sqlName(m_report.SpecUseWith) +
                 u'.' + sqlName(field.mainKey()) + u" = "_s + table + u'.' + sqlName(field.lookupKey()) +
                 u')';
    }

    const ReportDefinition &m_report;
    ColumnNames m_names;
    const RegionalSettings &m_regional;
    QStringList m_select;
    QString m_conditions; ///< each behind " and "
    QString m_from;
    QStringList m_tables;
};

} // namespace

QString reportQuery(const ReportDefinition &report, ColumnNames names, const RegionalSettings &regional)
{
    return QueryBuilder(report, names, regional).build();
}

} // namespace obelmark
