// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/CannedReports.h"

#include "common/SharedState.h"
#include "reports/ReportGroups.h"
#include "reports/ReportRun.h"

namespace obelmark {

using namespace Qt::StringLiterals;
using enum CellKind;

namespace {

/// Another tool may leave a mark null, which counts as false.
QString ownedCoins()
{
    return u" where not ifnull(wantlist, 0) and not ifnull(sold, 0) "_s;
}

CannedReport coinList()
{
    return {
        .textFile = u"CoinDesc.txt"_s,
        .htmlFile = u"coindesc.htm"_s,
        .title = u"Coin List"_s,
        .htmlTitleColumns = 4,
        .TableFormat = u"4320|1440|>1440|>1340|>1340;"_s,
        .headings = u"Description|Cat #|Face Value|Year|Quantity"_s,
        .query =
            u"Select descr, CatNum, face, year, quantity from Coin"_s + ownedCoins() + u"order by descr"_s,
        .cells = {{u"descr"_s}, {u"CatNum"_s}, {u"face"_s, MoneyOrBlank}, {u"year"_s}, {u"quantity"_s}},
        .emptyMessage = u"You have not entered any reportable Coins!"_s,
    };
}

CannedReport coinsBy(const ReportGroup &group, qint32 selected)
{
    const LookupTable &table = lookupTable(group.table);
    const QString name = QString::fromUtf16(table.name);
    const QString key = QString::fromUtf16(table.KeyField);
    const QString entry = QString::fromUtf16(table.DescField);
    const QString caption = QString::fromUtf16(table.caption);
    QString query =
        u"Select descr, CatNum, Quantity, face, year, %1 from Coin left join %2 on Coin.%3 = %2.%3"_s.arg(
            entry, name, key) +
        ownedCoins();
    if (selected != -1)
        query += u"and Coin.%1 = %2"_s.arg(key).arg(selected);
    query += u" order by %1, descr"_s.arg(entry);
    return {
        .textFile = u"Coin.txt"_s,
        .htmlFile = u"coin.htm"_s,
        .title = u"Coins by "_s + caption,
        .htmlTitleColumns = 5,
        .TableFormat = u"2160|2880|1440|>1440|>1340|>1340;"_s,
        .headings = caption + u"|Description|Cat #|Face Value|Year|Quantity"_s,
        .query = query,
        .cells = {{entry},
                  {u"descr"_s},
                  {u"CatNum"_s},
                  {u"face"_s, MoneyOrBlank, true},
                  {u"year"_s},
                  {u"quantity"_s, Plain, true}},
        .sums = {.quantity = true},
        .totalsRows = {{u"2160|>8440;"_s, u"Total Coins|{quantity};"_s, u"\t\t\t\t\t{quantity}"_s,
                        u"<tr><td>Total Coins</td><td align=right colspan=5>{quantity}</td></tr>"_s}},
        .emptyMessage = u"You have not entered any reportable Coins!"_s,
    };
}

/// The cells of a report that sets a price against what was paid.
QList<ReportCell> cellsAgainstPaid(const QString &price)
{
    return {{u"descr"_s},
            {u"CatNum"_s},
            {u"quantity"_s, Plain, true},
            {u"pricepaid"_s, MoneyOrZero, true},
            {u"pricepaid"_s, TimesQuantity, true},
            {price, MoneyOrZero, true},
            {price, TimesQuantity, true}};
}

CannedReport coinValue()
{
    return {
        .textFile = u"Value.txt"_s,
        .htmlFile = u"value.htm"_s,
        .htmlFilter = u"html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s,
        .title = u"Coin Value Report"_s,
        .htmlTitle = u"Coin Collection Value "_s,
        .htmlTableTitle = u"Coin Collection Value"_s,
        .htmlTitleColumns = 7,
        .TableFormat = u"2160|1400|>1400|>1440|>1400|>1400|>1400;"_s,
        .headings = u"Description|Cat #|Quantity|Paid Each|Total Paid|Value Each|Total Value"_s,
        .query = u"Select descr, CatNum, Quantity, PricePaid, CatValue from Coin"_s + ownedCoins() +
                 u"order by descr"_s,
        .cells = cellsAgainstPaid(u"CatValue"_s),
        .sums = {.quantity = true, .value = u"CatValue"_s},
        .totalsRows = {{u"3560|>1400|>2840|>2800;"_s, u"Totals|{quantity}|{paid}|{value};"_s,
                        u"\t\t{quantity}\t\t{paid}\t\t{value}"_s,
                        u"<tr><td>Totals</td><td align=right colspan=2>{quantity}</td>"
                        "<td align=right colspan=2>{paid}</td><td align=right colspan=2>{value}</td></tr>"_s},
                       {u"3560|>7040;"_s, u"Value Minus Cost|{difference};"_s, u"\t\t\t\t\t\t{difference}"_s,
                        u"<tr><td>Value Minus Cost</td><td align=right colspan=6>{difference}</td></tr>"_s}},
        .emptyMessage = u"You have not entered any reportable Coins!"_s,
    };
}

CannedReport coinSales()
{
    return {
        .textFile = u"Sales.txt"_s,
        .htmlFile = u"sales.htm"_s,
        .title = u"Coin Sales Report"_s,
        .htmlTitleColumns = 7,
        .TableFormat = u"2160|1400|>1400|>1400|>1400|>1400|>1400;"_s,
        .headings = u"Description|Cat #|Quantity|Paid Each|Total Paid|Sale Each|Total Sales"_s,
        .htmlHeadings = u"Description|Cat #|Quantity|Paid Each|Total Paid|Sale Price Each|Total Sales"_s,
        // The asking price of a sold coin is what it was sold for.
        .query = u"Select descr, CatNum, Quantity, PricePaid, PriceAsk from Coin where sold order by descr"_s,
        .cells = cellsAgainstPaid(u"PriceAsk"_s),
        .sums = {.quantity = true, .value = u"PriceAsk"_s},
        .totalsRows = {{u"3560|>1400|>2800|>2800;"_s, u"Totals|{quantity}|{paid}|{value};"_s,
                        u"\t\t{quantity}\t\t{paid}\t\t{value}"_s,
                        u"<tr><td>Totals</td><td align=right colspan=2>{quantity}</td>"
                        "<td align=right colspan=2>{paid}</td><td align=right colspan=2>{value}</td></tr>"_s},
                       {u"3560|>7000;"_s, u"Sale Price Minus Cost|{difference};"_s,
                        u"\t\t\t\t\t\t{difference}"_s,
                        u"<tr><td>Sale Price Minus Cost</td>"
                        "<td align=right colspan=6>{difference}</td></tr>"_s}},
        .plainTextTotals = true,
        .emptyMessage = u"You have not entered any Coins as sold."_s,
    };
}

CannedReport coinsForSale()
{
    return {
        .textFile = u"ForSale.txt"_s,
        .htmlFile = u"forsale.htm"_s,
        .title = u"Coins For Sale"_s,
        .htmlTitleColumns = 4,
        .TableFormat = u"2880|1440|1440|720|720|>1400;"_s,
        .headings = u"Description|Cat #|Country|Face|Year|Price"_s,
        .query = u"Select descr, CatNum, PriceAsk, coudesc, face, year from Coin left join country on "
                 u"coin.couid = "
                 "country.couid where forsale order by descr"_s,
        .cells = {{u"descr"_s},
                  {u"CatNum"_s},
                  {u"coudesc"_s},
                  {u"face"_s, MoneyOrZero},
                  {u"year"_s},
                  {u"PriceAsk"_s, MoneyOrZero, true}},
        .emptyMessage = u"You have not entered any Coins with the For Sale option checked."_s,
    };
}

CannedReport coinWantList()
{
    return {
        .textFile = u"WantList.txt"_s,
        .htmlFile = u"wantlist.htm"_s,
        .title = u"Coin Want List"_s,
        .htmlTitle = u"Coin Want List "_s,
        .htmlTitleColumns = 4,
        .TableFormat = u"2880|1440|1440|720|720|>1400;"_s,
        .headings = u"Description|Cat #|Country|Face|Year|Will Pay"_s,
        .query = u"Select descr, CatNum, PricePaid, coudesc, face, year from Coin left join country on "
                 u"coin.couid = "
                 "country.couid where wantlist order by descr"_s,
        // The price paid for a wanted coin is what the collector will pay for it.
        .cells = {{u"descr"_s},
                  {u"CatNum"_s},
                  {u"coudesc"_s},
                  {u"face"_s, MoneyOrBlank, true},
                  {u"year"_s},
                  {u"PricePaid"_s, MoneyOrZero, true}},
        .sums = {.total = u"PricePaid"_s},
        .totalsRows = {{QString(), u"|||||{total};"_s, u"\t\t\t\t\t{total}"_s,
                        u"<tr><td align=right colspan=5>{total}</td></tr>"_s}},
        .emptyMessage = u"You have not entered any want list Coins!"_s,
    };
}

CannedReport sellerList()
{
    return {
        .textFile = u"Sellers.txt"_s,
        .htmlFile = u"sellers.htm"_s,
        .htmlFilter = u"html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s,
        .title = u"Seller List"_s,
        .htmlTitleColumns = 4,
        .TableFormat = u"600|2880|1440|5650;"_s,
        .headings = u"Fav.|Seller|Phone|Notes"_s,
        .htmlHeadings = u"Favorite|Seller|Phone|Notes"_s,
        .htmlHeadingsEnd = u"</tr>"_s,
        .query = u"Select * from boughtfrom order by boudesc"_s,
        .cells = {{u"BouFav"_s, Mark}, {u"bouDesc"_s}, {u"BouPhone"_s}, {u"bounotes"_s}},
        .emptyMessage = u"You have not entered any Coin Sellers!"_s,
    };
}

} // namespace

void RptCoinList(SharedState &shared, ReportPreview &preview)
{
    runReport(coinList(), shared, preview);
}

void RptCoinsBy(SharedState &shared, ReportPreview &preview, const std::function<void()> &showSelection)
{
    showSelection();
    if (!shared.FindCancelled)
        runReport(coinsBy(reportGroup(shared.ReportGroupMode), shared.SelectedGroupID), shared, preview);
}

void RptValue(SharedState &shared, ReportPreview &preview)
{
    runReport(coinValue(), shared, preview);
}

void RptSales(SharedState &shared, ReportPreview &preview)
{
    runReport(coinSales(), shared, preview);
}

void RptForSale(SharedState &shared, ReportPreview &preview)
{
    runReport(coinsForSale(), shared, preview);
}

void RptWantList(SharedState &shared, ReportPreview &preview)
{
    runReport(coinWantList(), shared, preview);
}

void RptSellers(SharedState &shared, ReportPreview &preview)
{
    runReport(sellerList(), shared, preview);
}

} // namespace obelmark
