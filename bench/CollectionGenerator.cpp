// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CollectionGenerator.h"

#include "PlainSqlite.h"
#include "common/CatalogueSort.h"
#include "engine/language/TextFold.h"
#include "store/CoinFile.h"
#include <QDate>
#include <QFile>
#include <array>
#include <optional>
#include <random>
#include <stdexcept>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

/// In the order in which CoinWriter::write() binds them.
constexpr char insertCoin[] = "insert into Coin (descr, descrsort, catnum, catsort, catnumsort, face, Year, "
                              "issuedate, conid, couid, minid, "
                              "catid, typid, forid, bouid, Metal, wantlist, forsale, sold, quantity, "
                              "pricepaid, totalpaid, catvalue, totalval, "
                              "priceask, totalsales, PurchaseDate, SoldDate, notes, misc1) "
                              "values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::array lookupTables{"condition", "country", "mint", "category", "type", "format", "boughtfrom"};
constexpr int sellers = 60;

class CoinWriter
{
public:
    CoinWriter(sqlite3 *connection, Letters letters, quint64 seed)
        : m_random(seed), m_letters(letters), m_insert(prepare(connection, insertCoin))
    {
        for (size_t i = 0; i < lookupTables.size(); ++i)
            m_entries[i] = singleNumber(connection, std::string("select count(*) from ") + lookupTables[i]);
    }

    void write()
    {
        m_parameter = 0;
        const CoinTexts texts = makeCoinTexts(m_pick, m_letters);
        bindText(texts.description);
        bindText(foldText(texts.description));
        bindText(texts.catalogueNumber);
        bindText(MakeCatSort(texts.catalogueNumber));
        bindText(foldText(texts.catalogueNumber));
        static constexpr std::array faces{100, 500, 1000, 2500, 5000, 10000, 20000, 50000, 100000};
        bindNumber(faces[size_t(m_pick(faces.size()))]);
        bindNumber(unlessOneIn(30, 1700 + m_pick(320)));
        bindText(m_pick(10) == 0 ? date(1850) : QString());
        for (const qint64 entries : m_entries)
            bindNumber(unlessOneIn(12, 1 + m_pick(entries)));
        bindText(texts.metal);
        const qint64 state = m_pick(20);
        const bool wanted = state == 0, forSale = state == 1, sold = state == 2;
        for (const bool is : {wanted, forSale, sold})
            bindNumber(is);
        const qint64 quantity = m_pick(6) == 0 ? 2 + m_pick(20) : 1;
        bindNumber(quantity);
        for (const bool isPriced : {true, m_pick(8) != 0, forSale || sold}) {
            const qint64 price = 100 * (1 + m_pick(m_pick(10) == 0 ? 500000 : 5000));
            bindNumber(isPriced ? std::optional(price) : std::nullopt);
            bindNumber(isPriced ? std::optional(price * quantity) : std::nullopt);
        }
        bindText(date(1975));
        bindText(sold ? date(2000) : QString());
        bindText(texts.notes);
        bindText(m_pick(10) == 0 ? u"Box %1"_s.arg(m_pick(50)) : QString());
        stepToEnd(m_insert.get());
    }

private:
    std::optional<qint64> unlessOneIn(qint64 count, qint64 number)
    {
        return m_pick(count) == 0 ? std::nullopt : std::optional(number);
    }
    QString date(int fromYear) { return QDate(fromYear, 1, 1).addDays(m_pick(9000)).toString(Qt::ISODate); }

    void bindText(const QString &text)
    {
        if (text.isEmpty())
            bindNumber(std::nullopt);
        else
            bench::bindText(m_insert.get(), ++m_parameter, text);
    }
    void bindNumber(std::optional<qint64> number)
    {
        ++m_parameter;
        if (number)
            sqlite3_bind_int64(m_insert.get(), m_parameter, *number);
        else
            sqlite3_bind_null(m_insert.get(), m_parameter);
    }

    std::mt19937_64 m_random;
    // None of the standard distributions: those differ from one standard library to the next.
    const Pick m_pick = [this](qint64 below) { return qint64(m_random() % quint64(below)); };
    Letters m_letters;
    Statement m_insert;
    std::array<qint64, lookupTables.size()> m_entries{};
    int m_parameter = 0;
};

void runScript(sqlite3 *connection, const QString &name)
{
    QFile script(QStringLiteral(OBELMARK_DATA_SOURCES "/") + name);
    if (!script.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + script.fileName().toStdString());
    execute(connection, script.readAll().toStdString());
}

/// Takes the coins' indexes away and answers the SQL that brings them back: to make them at the end is much
/// faster than to keep them up to date.
std::string dropIndexes(sqlite3 *connection)
{
    std::string drop, create;
    const Statement indexes =
        prepare(connection, "select name, sql from sqlite_master where type = 'index' and tbl_name = 'Coin'");
    while (sqlite3_step(indexes.get()) == SQLITE_ROW) {
        drop += "drop index " + textAt(indexes.get(), 0) + ";";
        create += textAt(indexes.get(), 1) + ";";
    }
    sqlite3_reset(indexes.get());
    execute(connection, drop);
    return create;
}

void fill(const QString &path, qint64 coins, Letters letters)
{
    const Connection connection = openPlain(path, SQLITE_OPEN_CREATE);
    execute(connection.get(),
            "pragma journal_mode = off; pragma synchronous = off; pragma cache_size = -200000");
    runScript(connection.get(), u"coin.sql"_s);
    runScript(connection.get(), u"starter.sql"_s);
    execute(connection.get(), "begin");
    for (int i = 1; i <= sellers; ++i)
        execute(connection.get(),
                "insert into boughtfrom (bouDesc, BouFav) values ('Dealer " + std::to_string(i) + "', 0)");
    const std::string createIndexes = dropIndexes(connection.get());
    CoinWriter writer(connection.get(), letters, quint64(coins) * 3 + quint64(letters));
    for (qint64 i = 0; i < coins; ++i)
        writer.write();
    execute(connection.get(), createIndexes + "commit");
}

} // namespace

void generateCollection(const QString &path, qint64 coins, Letters letters)
{
    const QString unfinished = path + u".new"_s;
    QFile::remove(unfinished);
    fill(unfinished, coins, letters);
    // The program itself fills what the starter rows leave open.
    openCoinDatabase(unfinished);
    QFile::remove(path);
    if (!QFile::rename(unfinished, path))
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace obelmark::bench
