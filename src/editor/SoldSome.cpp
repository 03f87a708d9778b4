#include "editor/SoldSome.h"

#include "common/CatalogueSort.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "editor/CoinFields.h"
#include "engine/rows/Transaction.h"
#include "pictures/PictureFiles.h"
#include "runtime/Numbers.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

struct TotalRow
{
    const char16_t *control;
    const char16_t *price;
    const char16_t *total;
};

constexpr TotalRow totalTable[] = {
    {u"txtPricePaid", u"pricepaid", u"totalpaid"},
    {u"txtCatValue", u"catvalue", u"totalval"},
    {u"txtPriceAsk", u"priceask", u"totalsales"},
};

Money times(Money price, qint64 quantity)
{
    return price.times(Money::fromWhole(quantity));
}

/// The number that the user answers; nothing, after a message, when it cannot be sold.
std::optional<qint64> askNumberSold(SharedState &shared, qint64 quantity)
{
    const QString answer =
        shared.desktop.askText(u"How many of this coin were sold?"_s, u"Sold Some of Current Coin"_s)
            .value_or(QString());
    const double number = isNumeric(answer, shared.regional) ? toDouble(answer, shared.regional) : 0;
    const auto most = double(std::max<qint64>(quantity, 0));
    // One more than there are stands for any larger number, which may not fit into an integer.
    const auto sold = qint64(std::nearbyint(std::clamp(number, 0.0, most + 1)));
    if (sold <= 0) {
        shared.desktop.showMessage(u"You must enter a number for the number sold."_s, u"Number Required"_s);
        return {};
    }
    if (sold > quantity) {
        shared.desktop.showMessage(u"You do not have that many of the current coin."_s, u"Sold How Many?"_s);
        return {};
    }
    return sold;
}

/// The record of the coins sold: what stands in the fields, but for the number, the totals and the sale.
/// Answers whether it was written.
bool writeSoldRecord(CoinFields &fields, SharedState &shared, qint64 sold)
{
    // The fields show the lot as it is stored; a saved edit would put the issue date into the century of the
    // year.
    Value issueDate;
    attempt(shared, [&] { issueDate = coinRecordset(shared).value(u"issuedate"); });
    attempt(shared, [&] { coinRecordset(shared).addNew(); });
    fields.writeRow();
    const auto set = [&](QStringView column, const std::function<Value()> &value) {
        attempt(shared, [&] { coinRecordset(shared).setValue(column, value()); });
    };
    // Unlike that of an edited coin, this key takes the digits behind a hyphen too.
    set(u"catsort",
        [&] { return MakeCatSort(coinRecordset(shared).value(u"catnum").toText().remove(u'-')); });
    set(u"issuedate", [&] { return issueDate; });
    set(u"quantity", [&] { return Value(sold); });
    for (const TotalRow &row : totalTable) {
        set(row.total, [&] {
            const Value price = fields.money(QString::fromUtf16(row.control)).value();
            return price.is<Money>() ? Value(times(*price.as<Money>(), sold)) : Value();
        });
    }
    set(u"forsale", [] { return Value(false); });
    set(u"sold", [] { return Value(true); });
    set(u"SoldDate", [] { return Value(Date::today()); });
    attempt(shared, [&] { setAsideStrayPictures(shared, coinRecordset(shared).value(u"coinid").toInt()); });
    return writeWithRetry(shared, [&] { coinRecordset(shared).update(); });
}

/// What is left of the lot, its totals from the stored prices.
void reduceLot(SharedState &shared, qint64 sold)
{
    auto &coins = coinRecordset(shared);
    attempt(shared, [&] { coins.edit(); });
    attempt(shared, [&] {
        const qint64 left = coins.value(u"quantity").toInt() - sold;
        coins.setValue(u"quantity", left);
        for (const TotalRow &row : totalTable) {
            const Value price = coins.value(row.price);
            if (price.is<Money>())
                coins.setValue(row.total, times(*price.as<Money>(), left));
        }
    });
}

} // namespace

bool sellSome(CoinFields &fields, SharedState &shared)
{
    if (coinRecordset(shared).isEmpty()) {
        shared.desktop.showMessage(u"There are no coins to sell."_s);
        return false;
    }
    const Value stored = coinRecordset(shared).value(u"quantity");
    const qint64 quantity = stored.isNull() ? 0 : stored.toInt();
    const auto sold = askNumberSold(shared, quantity);
    if (!sold)
        return false;
    const qint64 lot = coinRecordset(shared).value(u"coinid").toInt();

    std::optional<Transaction> sale;
    if (!writeWithRetry(shared, [&] { sale.emplace(coinDatabase(shared)); }))
        return false;
    const auto commit = [&] { return writeWithRetry(shared, [&] { sale->commit(); }); };
    const auto findLot = [&] {
        attempt(shared, [&] { coinRecordset(shared).findFirst(u"CoinID = %1"_s.arg(lot)); });
    };
    if (*sold == quantity) {
        attempt(shared, [&] { coinRecordset(shared).edit(); });
        attempt(shared, [&] { coinRecordset(shared).setValue(u"forsale", false); });
        attempt(shared, [&] { coinRecordset(shared).setValue(u"sold", true); });
    } else {
        // A lot must not be reduced for a record that is not there: without it the sale is undone.
        const bool recorded = writeSoldRecord(fields, shared, *sold);
        findLot();
        if (!recorded)
            return true;
        if (coinRecordset(shared).noMatch()) {
            commit();
            shared.desktop.showMessage(u"Error entering sale"_s);
            return false;
        }
        reduceLot(shared, *sold);
    }
    if (writeWithRetry(shared, [&] { coinRecordset(shared).update(); }))
        commit();
    else
        findLot(); // which drops the change
    return true;
}

} // namespace obelmark
