// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/SoldSome.h"

#include "coins/CoinRules.h"
#include "coins/WriteStep.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "editor/CoinFields.h"
#include "editor/frmMain.h"
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

/// The number that the user answers; nothing, after a message, when it cannot be sold.
std::optional<qint32> askNumberSold(SharedState &shared, qint32 quantity)
{
    const QString answer =
        shared.desktop.askText(u"How many of this coin were sold?"_s, u"Sold Some of Current Coin"_s)
            .value_or(QString());
    const double number = isNumeric(answer, shared.regional) ? toDouble(answer, shared.regional) : 0;
    const auto most = double(std::max(quantity, 0));
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
    return qint32(sold);
}

/// Whether the record was written.
bool addSoldRecord(WriteStep &sale, const Coin &sold, SharedState &shared)
{
    auto &coins = coinRecordset(shared);
    attempt(shared, [&] { coins.addNew(); });
    attempt(shared, [&] { writeCoin(coins, sold); });
    attempt(shared, [&] { setAsideStrayPictures(shared, coins.value(u"coinid").toInt()); });
    return sale.update(coins);
}

} // namespace

bool sellSome(const CoinFields &fields, SharedState &shared, const frmMain &window)
{
    auto &coins = coinRecordset(shared);
    if (coins.isEmpty()) {
        shared.desktop.showMessage(u"There are no coins to sell."_s);
        return false;
    }
    const Coin lot = readCoin(coins);
    const auto sold = askNumberSold(shared, lot.quantity.value_or(0));
    if (!sold)
        return false;

    WriteStep sale(shared, StepKind::Sell, u"Sell %1 of '%2'"_s.arg(QString::number(*sold), coinName(lot)),
                   &window);
    if (!sale.isBegun())
        return false;
    const auto findLot = [&] { attempt(shared, [&] { coins.findFirst(u"CoinID = %1"_s.arg(lot.coinid)); }); };
    Coin kept = lot;
    if (*sold == lot.quantity) {
        kept.forsale = false;
        kept.sold = true;
    } else {
        SplitLot split;
        attempt(shared, [&] { split = splitLot(lot, fields.coin(), *sold, Date::today()); });
        // A lot must not be reduced for a record that is not there: without it the sale is undone.
        const bool recorded = addSoldRecord(sale, split.sold, shared);
        findLot();
        if (!recorded)
            return true;
        if (coins.noMatch()) {
            sale.commit();
            shared.desktop.showMessage(u"Error entering sale"_s);
            return false;
        }
        kept = split.kept;
    }
    attempt(shared, [&] { coins.edit(); });
    attempt(shared, [&] { writeChanges(coins, lot, kept); });
    if (sale.update(coins))
        sale.commit();
    else
        findLot(); // which drops the change
    return true;
}

} // namespace obelmark
