// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/CoinFields.h"

#include "coins/CoinRules.h"
#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "editor/LookupList.h"
#include "runtime/NumberedError.h"
#include "ui_frmMain.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

using Window = Ui::frmMain;
using Control = std::unique_ptr<FieldControl>;
using Size = NumberControl::Size;

template<auto widget>
Control text(const Window &window, const SharedState &, const CoinColumn &column)
{
    (window.*widget)->setMaxLength(column.mostLetters);
    return std::make_unique<TextControl>(window.*widget);
}

template<auto widget>
Control money(const Window &window, const SharedState &shared, const CoinColumn &)
{
    return std::make_unique<MoneyControl>(window.*widget, shared);
}

template<auto widget>
Control date(const Window &window, const SharedState &shared, const CoinColumn &)
{
    return std::make_unique<DateControl>(window.*widget, shared);
}

template<auto widget>
Control yesNo(const Window &window, const SharedState &, const CoinColumn &)
{
    return std::make_unique<YesNoControl>(window.*widget);
}

template<auto widget>
Control entry(const Window &window, const SharedState &, const CoinColumn &)
{
    return std::make_unique<LookupControl>(window.*widget);
}

Control notes(const Window &window, const SharedState &, const CoinColumn &)
{
    return std::make_unique<NotesControl>(window.txtNotes);
}

Control year(const Window &window, const SharedState &shared, const CoinColumn &)
{
    return std::make_unique<NumberControl>(window.txtYear, Size::Bits16, QString(), shared);
}

Control quantity(const Window &window, const SharedState &shared, const CoinColumn &)
{
    return std::make_unique<NumberControl>(window.txtQuantity, Size::Bits32, u"1"_s, shared);
}

Control issueDate(const Window &window, const SharedState &shared, const CoinColumn &)
{
    return std::make_unique<IssueDateControl>(window.dcIssueDate, window.txtYear, shared);
}

struct FieldRow
{
    const char16_t *column;
    Control (*make)(const Window &window, const SharedState &shared, const CoinColumn &);
    bool isTotal = false;
};

constexpr FieldRow fieldTable[] = {
    {u"descr", text<&Window::txtDescr>},
    {u"catnum", text<&Window::txtCatNum>},
    {u"face", money<&Window::txtFace>},
    {u"Year", year},
    {u"wantlist", yesNo<&Window::chkWantList>},
    {u"quantity", quantity},
    {u"conid", entry<&Window::cmbCon>},
    {u"couid", entry<&Window::cmbCou>},
    {u"minid", entry<&Window::cmbMin>},
    {u"catid", entry<&Window::cmbCat>},
    {u"typid", entry<&Window::cmbTyp>},
    {u"forid", entry<&Window::cmbFor>},
    {u"SerNum", text<&Window::txtSerNum>},
    {u"Metal", text<&Window::txtMetal>},
    {u"Errors", text<&Window::txtErrors>},
    {u"issuedate", issueDate},
    {u"bouid", entry<&Window::cmbBou>},
    {u"pricepaid", money<&Window::txtPricePaid>},
    {u"totalpaid", money<&Window::txtTotalPaid>, true},
    {u"PurchaseDate", date<&Window::dcPurchaseDate>},
    {u"catvalue", money<&Window::txtCatValue>},
    {u"totalval", money<&Window::txtTotalVal>, true},
    {u"SoldDate", date<&Window::dcSoldDate>},
    {u"forsale", yesNo<&Window::chkForSale>},
    {u"sold", yesNo<&Window::chkSold>},
    {u"priceask", money<&Window::txtPriceAsk>},
    {u"totalsales", money<&Window::txtTotalSales>, true},
    {u"notes", notes},
    {u"misc1", text<&Window::txtMisc1>},
    {u"misc2", text<&Window::txtMisc2>},
};

} // namespace

CoinFields::CoinFields(const Ui::frmMain &window, const SharedState &shared)
{
    for (const FieldRow &row : fieldTable) {
        const CoinColumn *column = findCoinColumn(row.column);
        m_fields.push_back({column, !row.isTotal, row.make(window, shared, *column)});
    }
}

CoinFields::~CoinFields() = default;

void CoinFields::show(const Coin &coin)
{
    m_shown = coin;
    for (const Field &field : m_fields)
        field.control->show(field.column->in(coin));
}

void CoinFields::clear()
{
    m_shown = {};
    for (const Field &field : m_fields)
        field.control->clear();
}

void CoinFields::setEnabled(bool enabled)
{
    for (const Field &field : m_fields) {
        if (field.isEntry)
            field.control->widget()->setEnabled(enabled);
    }
}

void CoinFields::onChange(QObject *context, const std::function<void()> &changed) const
{
    for (const Field &field : m_fields) {
        if (field.isEntry)
            field.control->onChange(context, changed);
    }
}

void CoinFields::forEach(const std::function<void(const FieldControl &)> &act) const
{
    for (const Field &field : m_fields)
        act(*field.control);
}

Coin CoinFields::coin() const
{
    Coin coin = m_shown;
    for (const Field &field : m_fields)
        field.column->put(coin, field.control->value());
    coin.catsort = catSortOf(coin);
    return coin;
}

Coin CoinFields::coinToCheck() const
{
    Coin coin = m_shown;
    for (const Field &field : m_fields) {
        try {
            field.column->put(coin, field.control->value());
        } catch (const NumberedError &) {
            field.column->putAnything(coin); // it is refused when it is saved
        }
    }
    return coin;
}

MoneyControl &CoinFields::money(Coin::Maybe<Money> Coin::*field)
{
    const auto found = std::ranges::find(m_fields, CoinColumn::Member(field),
                                         [](const Field &each) { return each.column->field; });
    Q_ASSERT(found != m_fields.end());
    return dynamic_cast<MoneyControl &>(*found->control);
}

QWidget *CoinFields::widget(QStringView column) const
{
    const auto found = std::ranges::find(m_fields, findCoinColumn(column), &Field::column);
    Q_ASSERT(found != m_fields.end());
    return found->control->widget();
}

} // namespace obelmark
