// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Saving a changed coin among a million, against a prepared UPDATE of the same columns.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "PlainSqlite.h"
#include "common/CatalogueSort.h"
#include "engine/language/TextFold.h"
#include "store/CoinFile.h"
#include <stdexcept>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

/// A coin, and what a user has made of it.
struct Change
{
    qint64 coinId = 0;
    qint64 price = 0;
    QString notes, description, catalogueNumber;
};

/// Two copies of a collection, in which the same changes are saved.
class Savers
{
public:
    explicit Savers(bool inOrder) : m_inOrder(inOrder)
    {
        requireRealDisk();
        m_database = openCoinDatabase(scratchCopy(collection(million), u"update"_s));
        m_coins = openCoins(*m_database);
        m_plain = openPlain(scratchCopy(collection(million), u"update-plain"_s));
        m_update =
            prepare(m_plain.get(), std::string("update Coin set pricepaid = ?2, totalpaid = ?2, notes = ?3") +
                                       (inOrder ? ", descr = ?4, descrsort = ?5, catnum = ?6, catsort = ?7, "
                                                  "catnumsort = ?8"
                                                : "") +
                                       " where coinid = ?1");
    }

    void choose()
    {
        ++m_serial;
        m_change = {.coinId = (m_change.coinId + 618'033) % million + 1, // all over the file
                    .price = 10'000'000 + 100 * m_serial,
                    .notes = u"Price changed for the %1th time."_s.arg(m_serial),
                    .description = u"%1th Dollar Lincoln, overdate"_s.arg(m_serial * 37 % 1000),
                    .catalogueNumber = u"KM %1-changed"_s.arg(m_serial * 37 % 1000)};
        m_coins->findFirst(u"CoinID = %1"_s.arg(m_change.coinId));
    }
    void saveOurs()
    {
        m_coins->edit();
        // The main window hands over every field, changed or not.
        for (const char16_t *column : coinColumns)
            m_coins->setValue(column, m_coins->value(column));
        m_coins->setValue(u"pricepaid", Money::fromTenThousandths(m_change.price));
        m_coins->setValue(u"totalpaid", Money::fromTenThousandths(m_change.price));
        m_coins->setValue(u"notes", m_change.notes);
        if (m_inOrder) {
            m_coins->setValue(u"descr", m_change.description);
            m_coins->setValue(u"catnum", m_change.catalogueNumber);
            m_coins->setValue(u"catsort", MakeCatSort(m_change.catalogueNumber));
        }
        m_coins->update();
    }
    void savePlain()
    {
        sqlite3_stmt *update = m_update.get();
        sqlite3_bind_int64(update, 1, m_change.coinId);
        sqlite3_bind_int64(update, 2, m_change.price);
        bindText(update, 3, m_change.notes);
        if (m_inOrder) {
            bindText(update, 4, m_change.description);
            bindText(update, 5, foldText(m_change.description));
            bindText(update, 6, m_change.catalogueNumber);
            bindText(update, 7, MakeCatSort(m_change.catalogueNumber));
            bindText(update, 8, foldText(m_change.catalogueNumber));
        }
        stepToEnd(update);
    }
    void check() const
    {
        const std::string saved =
            "select count(*) from Coin where coinid = " + std::to_string(m_change.coinId) +
            " and pricepaid = " + std::to_string(m_change.price);
        if (singleNumber(m_plain.get(), saved) != 1 || m_coins->value(u"notes") != Value(m_change.notes))
            throw std::runtime_error("the coin was not saved");
    }

private:
    bool m_inOrder; ///< whether texts change that orders depend on
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Dynaset> m_coins;
    Connection m_plain;
    Statement m_update;
    Change m_change;
    int m_serial = 0;
};

Sides prepareUpdate(bool inOrder)
{
    const auto savers = std::make_shared<Savers>(inOrder);
    return {.ours = [=] { return milliseconds([&] { savers->saveOurs(); }); },
            .other = [=] { return milliseconds([&] { savers->savePlain(); }); },
            .beforePair = [=] { savers->choose(); },
            .afterPair = [=] { savers->check(); }};
}

} // namespace

void addUpdateBenches()
{
    for (const bool inOrder : {false, true})
        registerComparison({.name = std::string("Update of price, notes") +
                                    (inOrder ? ", description, number" : "") + ", 1 million",
                            .prepare = [=] { return prepareUpdate(inOrder); },
                            .pairs = 200,
                            .target = {.ratio = 1.3}});
}

} // namespace obelmark::bench
