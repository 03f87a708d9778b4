// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/MoneyFields.h"

#include "coins/CoinRules.h"
#include "common/SharedState.h"
#include "editor/CoinFields.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include "ui_frmMain.h"

namespace obelmark {

using namespace Qt::StringLiterals;
using Refusal = EntryWatch::Refusal;

namespace {

/// Where the focus goes from each of the totals.
constexpr DateField *Ui::frmMain::*afterTotals[] = {
    &Ui::frmMain::dcPurchaseDate,
    &Ui::frmMain::dcSoldDate,
    &Ui::frmMain::dcSoldDate,
};

} // namespace

MoneyFields::MoneyFields(QWidget &parent, const Ui::frmMain &window, CoinFields &fields, EntryWatch &watch,
                         const SharedState &shared)
    : QObject(&parent), m_shared(shared), m_quantity(window.txtQuantity), m_face(&fields.money(&Coin::face))
{
    const auto selectAll = [](QWidget *field) { return [field] { EntryWatch::selectAllLater(field); }; };
    for (const PriceAndTotal &row : pricesAndTotals()) {
        const Unit unit{&fields.money(row.price), &fields.money(row.total)};
        QWidget *next = window.*afterTotals[m_units.size()];
        m_units.push_back(unit);
        unit.total->setForesight([this, unit] { return foresee(unit); });
        watch.watch(unit.price->widget(),
                    {selectAll(unit.price->widget()), [this, unit] { return leaveUnit(unit); }, {}});
        QWidget *total = unit.total->widget();
        const auto moveOn = [total, next] {
            // Unless the field that was left for this one has been refused and has the focus again.
            const auto move = [total, next] {
                if (total->hasFocus())
                    EntryWatch::focusField(next);
            };
            QMetaObject::invokeMethod(next, move, Qt::QueuedConnection);
        };
        watch.watch(total, {moveOn, {}, {}});
    }
    watch.watch(m_face->widget(), {selectAll(m_face->widget()), [this] { return leaveFace(); }, {}});
    // On an access key only the totals follow; a quantity that is no number is for the record rules to
    // refuse.
    watch.watch(m_quantity, {selectAll(m_quantity), [this] { return leaveQuantity(); },
                             [this] {
                                 recomputeTotals();
                                 return std::optional<Refusal>();
                             }});
}

std::optional<Refusal> MoneyFields::leaveUnit(const Unit &unit)
{
    if (unit.price->text().isEmpty()) {
        unit.total->clear();
        return {};
    }
    if (!unit.price->isNumber())
        return Refusal{u"You must enter a valid number or leave the field blank"_s};
    showTotal(unit);
    if (!unit.price->isUntouched())
        unit.price->showAsMoney();
    return {};
}

std::optional<Refusal> MoneyFields::leaveFace()
{
    if (m_face->text().isEmpty() || m_face->isUntouched())
        return {};
    if (!m_face->isNumber())
        return Refusal{u"You must enter a valid number for face value or leave the field blank"_s};
    m_face->showAsMoney();
    return {};
}

std::optional<Refusal> MoneyFields::leaveQuantity()
{
    if (!isNumber(m_quantity->text()))
        return Refusal{u"You must enter a number in the Quantity field"_s, Desktop::Icon::Critical};
    recomputeTotals();
    return {};
}

void MoneyFields::roundQuantity()
{
    QString whole;
    try {
        whole = QString::number(toInt32(m_quantity->text(), m_shared.regional));
    } catch (const NumberedError &) {
        return; // refused when the field is written
    }
    if (whole == m_quantity->text())
        return;
    m_quantity->setText(whole);
    recomputeTotals();
}

void MoneyFields::recomputeTotals()
{
    for (const Unit &unit : m_units) {
        if (unit.price->isNumber())
            showTotal(unit);
    }
}

void MoneyFields::showTotal(const Unit &unit)
{
    const RegionalSettings &regional = m_shared.regional;
    const QString quantity = m_quantity->text();
    if (!isNumber(quantity))
        return;
    try {
        const Value price = unit.price->value();
        const Money total = price.as<Money>()->times(Money::fromText(quantity, regional));
        // The total of a stored price is exact to its last decimal, like the price.
        if (unit.price->isUntouched())
            unit.total->showExactly(total);
        else
            unit.total->showRounded(total);
    } catch (const NumberedError &) {
        unit.total->showBeyond(toDouble(unit.price->text(), regional) * toDouble(quantity, regional));
    }
}

QString MoneyFields::foresee(const Unit &unit) const
{
    Money price;
    Money quantity;
    if (!unit.price->isNumber() || !isNumber(m_quantity->text()))
        return {};
    try {
        price = *unit.price->value().as<Money>();
        quantity = Money::fromWhole(toInt32(m_quantity->text(), m_shared.regional));
    } catch (const NumberedError &) {
        return {}; // told at the field itself
    }
    try {
        price.times(quantity);
        return {};
    } catch (const NumberedError &) {
        return beyondMoney((price < Money()) != (quantity < Money()), m_shared.regional);
    }
}

bool MoneyFields::isNumber(const QString &text) const
{
    return isNumeric(text, m_shared.regional);
}

} // namespace obelmark
