#include "editor/MoneyFields.h"

#include "common/SharedState.h"
#include "editor/CoinFields.h"
#include "runtime/Formats.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include <QLineEdit>

namespace obelmark {

using namespace Qt::StringLiterals;
using Refusal = EntryWatch::Refusal;

namespace {

struct UnitRow
{
    const char16_t *price;
    const char16_t *total;
    const char16_t *afterTotal;
};

constexpr UnitRow unitTable[] = {
    {u"txtPricePaid", u"txtTotalPaid", u"dcPurchaseDate"},
    {u"txtCatValue", u"txtTotalVal", u"dcSoldDate"},
    {u"txtPriceAsk", u"txtTotalSales", u"dcSoldDate"},
};

} // namespace

MoneyFields::MoneyFields(QWidget &window, CoinFields &fields, EntryWatch &watch, SharedState &shared)
    : QObject(&window), m_shared(shared), m_quantity(window.findChild<QLineEdit *>(u"txtQuantity"_s)),
      m_face(&fields.money(u"txtFace"_s))
{
    const auto selectAll = [](QWidget *field) { return [field] { EntryWatch::selectAllLater(field); }; };
    for (const UnitRow &row : unitTable) {
        const Unit unit{&fields.money(QString::fromUtf16(row.price)),
                        &fields.money(QString::fromUtf16(row.total))};
        m_units.push_back(unit);
        unit.total->setForesight([this, unit] { return foresee(unit); });
        watch.watch(unit.price->widget(),
                    {selectAll(unit.price->widget()), [this, unit] { return leaveUnit(unit); }, {}});
        auto *next = window.findChild<QWidget *>(QString::fromUtf16(row.afterTotal));
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
    const QString text = unit.price->text();
    if (!text.isEmpty() && !isNumber(text))
        return Refusal{u"You must enter a valid number or leave the field blank"_s};
    if (text.isEmpty()) {
        unit.total->showText(QString());
    } else {
        showTotal(unit);
        if (!unit.price->isUntouched())
            unit.price->showText(moneyText(text, m_shared.regional));
    }
    return {};
}

std::optional<Refusal> MoneyFields::leaveFace()
{
    const QString text = m_face->text();
    if (text.isEmpty() || m_face->isUntouched())
        return {};
    if (!isNumber(text))
        return Refusal{u"You must enter a valid number for face value or leave the field blank"_s};
    m_face->showText(moneyText(text, m_shared.regional));
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
        if (isNumber(unit.price->text()))
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
            unit.total->showText(formatCurrency(total, regional));
    } catch (const NumberedError &) {
        unit.total->showText(
            formatCurrency(toDouble(unit.price->text(), regional) * toDouble(quantity, regional), regional));
    }
}

QString MoneyFields::foresee(const Unit &unit) const
{
    Money price;
    Money quantity;
    if (!isNumber(unit.price->text()) || !isNumber(m_quantity->text()))
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
