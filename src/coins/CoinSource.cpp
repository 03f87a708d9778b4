// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/CoinSource.h"

#include "coins/Coin.h"
#include "coins/SortKey.h"
#include "common/LookupTables.h"
#include "engine/language/EngineError.h"
#include "engine/rows/Database.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

bool isIt(QStringView name, const QString &wanted)
{
    return name.compare(wanted, Qt::CaseInsensitive) == 0;
}

/// What a column is ordered by.
QString sortExpression(const QString &column)
{
    for (const LookupTable &table : lookupTables()) {
        if (isIt(table.DescField, column))
            return u"%1.%2sort"_s.arg(table.name, table.DescField);
    }
    if (column.compare("coinid"_L1, Qt::CaseInsensitive) == 0)
        return u"Coin.coinid"_s;
    const CoinColumn *found = findCoinColumn(column);
    if (!found)
        throw EngineError(UnknownColumn, column);
    const QString name = u"Coin."_s + QString::fromUtf16(found->name);
    if (found->hasSortText)
        return name + u"sort"_s;
    // The letters that such a column tells apart are those that lower() does.
    return found->isText() ? u"lower(%1)"_s.arg(name) : name;
}

bool names(const QString &condition, const LookupTable &table)
{
    const auto contains = [&](QStringView name) { return condition.contains(name, Qt::CaseInsensitive); };
    return contains(table.DescField) || std::ranges::any_of(table.otherFields, contains);
}

} // namespace

CoinSource::CoinSource(Database &database, const CoinQuery &query)
    : m_database(database), m_condition(query.condition)
{
    QString columns = u"Coin.coinid"_s;
    QString from = u"Coin"_s;
    for (const CoinQuery::Term &term : query.order) {
        columns += u", "_s + sortExpression(term.column);
        m_descending.push_back(term.descending);
    }
    // What is not used SQLite does not read.
    for (const LookupTable &table : lookupTables()) {
        from = u"(%1 left join %2 on Coin.%3 = %2.%3)"_s.arg(from, table.name, table.KeyField);
        m_readsEntries = m_readsEntries || names(columns + m_condition, table);
    }
    m_select = u"select %1 from %2 where "_s.arg(columns, from);
}

void CoinSource::read(const QString &condition, const Visit &visit) const
{
    std::string sortKey;
    for (const auto row = m_database.openForwardOnly(m_select + condition); !row->eof(); row->moveNext()) {
        sortKey.clear();
        for (size_t i = 0; i < m_descending.size(); ++i)
            appendToSortKey(sortKey, row->value(int(i) + 1), m_descending[i]);
        visit(sortKey, qint32(row->value(0).toInt()));
    }
}

void CoinSource::visit(qint64 first, qint64 last, const Visit &visit) const
{
    QString condition = u"Coin.coinid between %1 and %2"_s.arg(first).arg(last);
    if (!m_condition.isEmpty())
        condition += u" and ("_s + m_condition + u')';
    read(condition + u" order by Coin.coinid"_s, visit);
}

std::optional<SortPlace> CoinSource::place(qint64 key, Which which) const
{
    QString condition = u"Coin.coinid = %1"_s.arg(key);
    if (which == Which::OfTheSet && !m_condition.isEmpty())
        condition += u" and ("_s + m_condition + u')';
    std::optional<SortPlace> place;
    read(condition, [&](std::string_view sortKey, qint32 coin) {
        place = SortPlace{std::string(sortKey), coin};
    });
    return place;
}

std::optional<qint64> CoinSource::keyOf(const QString &query) const
{
    const auto row = m_database.openForwardOnly(query);
    const Value key = row->value(0);
    return key.isNull() ? std::nullopt : std::optional(key.toInt());
}

std::optional<qint64> CoinSource::nextKey(qint64 first) const
{
    return keyOf(u"select min(coinid) from Coin where coinid >= %1"_s.arg(first));
}

std::optional<qint64> CoinSource::lastKey() const
{
    return keyOf(u"select max(coinid) from Coin"_s);
}

} // namespace obelmark
