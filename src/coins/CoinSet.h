// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <chrono>
#include <memory>
#include <vector>

namespace obelmark {

class CoinSource;
class Database;
class SetReader;
struct Changes;

/// Which coins, and in what order.
struct CoinQuery
{
    struct Term
    {
        QString column; ///< of Coin, or the description of a lookup table
        bool descending = false;
    };

    /// In the engine's dialect, over Coin and the lookup tables joined with it: "coudesc like 'a*' and
    /// Coin.conid is null". Empty: all coins.
    QString condition;
    /// Texts in the order that reports have, null first; coins that agree in all of it by their keys.
    QList<Term> order;
};

/// A sorted, filtered set of coins, by number of row and by key. Of each coin it keeps the key alone, four
/// bytes; who shows a row reads it by that.
///
/// It is read in slices between which the program goes on, and coins may be written: the set is told of them
/// by apply(). A million coins take one to two seconds in all, a slice some ten milliseconds, a coin that has
/// changed as much.
///
/// To be made anew when the file has been opened anew.
class CoinSet
{
public:
    /// \throws UnknownColumn when the order names one
    CoinSet(Database &database, const CoinQuery &query);
    ~CoinSet();
    CoinSet(const CoinSet &) = delete;
    CoinSet &operator=(const CoinSet &) = delete;

    /// Reads on for about that time. Answers whether the set is complete; before, the rows are those of when
    /// it last was. Not called again, the reading is given up. \throws SyntaxError, UnknownColumn and others
    /// for the condition
    bool read(std::chrono::milliseconds time);
    bool isComplete() const;
    /// How much of the reading is done, from 0 to 1.
    double progress() const;

    qsizetype count() const { return qsizetype(m_keys.size()); }
    qint64 keyAt(qsizetype row) const { return m_keys[size_t(row)]; }
    /// -1 when the coin is not in the set.
    qsizetype rowOf(qint64 key) const;

    /// Takes in what has been written: each coin in its new place, those that have come and those that have
    /// gone. After a change of very many coins, or of entries that the set depends on, it is read anew and no
    /// longer complete.
    void apply(const Changes &changes);

private:
    void takeIn(std::vector<qint64> changed);
    void readAnew();

    std::unique_ptr<CoinSource> m_source;
    std::unique_ptr<SetReader> m_reader; ///< null when the set is complete
    std::vector<qint64> m_toTakeIn;      ///< written while it was read
    std::vector<qint32> m_keys;
};

} // namespace obelmark
