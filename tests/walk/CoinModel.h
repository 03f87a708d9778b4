// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "walk/Tables.h"

namespace obelmark::walk {

enum class Kind { Text, Notes, Face, Price, Total, Year, Quantity, Date, Mark, List };

struct Field
{
    explicit Field(const QStringList &cells);
    QString name;
    QString column;
    Kind kind;
    int limit; ///< letters that can be typed; 0: any number
};
extern const QList<Field> fields;
const Field &fieldNamed(const QString &name);

/// A lookup list: one entry for each of the seven modes of its maintenance, from 1.
struct Lookup
{
    explicit Lookup(const QStringList &cells);
    QString table;
    QString key;
    QString column;
    QString list; ///< its name in the main window
    QString asked;
    QString title;
    QString inUse;
    QString noun;
    QString caption;
    QString label;
    int topic;
};
extern const QList<Lookup> lookups;

/// What a user reads as a number, an amount in ten-thousandths, a day as ISO text.
std::optional<double> number(const QString &text);
std::optional<qint64> amount(const QString &text);
std::optional<QString> day(const QString &text);

/// The main window as it should be, over the tables as they should be. It knows nothing of how the program
/// does it: every rule is told anew here, in the plainest way.
class CoinModel
{
public:
    explicit CoinModel(QMap<QString, Table> &allTables);

    /// Another field, a button or, for nothing, none gets the focus. Answers false when the field that is
    /// left is refused, which takes the focus back.
    bool focus(const QString &to);
    /// The text of the field is replaced, the mark clicked, the entry with that key chosen.
    void enter(const QString &name, const QString &value);

    void start();
    void sort(int order);
    void move(Way way);
    void addNew(bool committed);
    void update(bool committed);
    void cancel();
    void remove(bool yes);
    void sell(const QString &answer);
    /// What the main window does when the Find dialog has closed.
    void afterFind(bool cancelled, qint64 before);
    /// The list of a table has been loaded anew.
    void reload(const Lookup &lookup);
    void tell(const QString &text, const QString &title = QStringLiteral("Obelmark"), int icon = 0);

    const QString &focused() const { return m_entered; }

    QMap<QString, Table> &tables;
    Cursor coins;
    int order = 1;
    State state = State::Browsing;
    bool enabled = false;
    QMap<QString, QString> shown; ///< by field: its text, "1" or "0" for a mark, the key or "" for a list
    QStringList told;             ///< boxes and beeps since the last operation

private:
    void show();
    void clear();
    void browse();
    bool leave(bool committing);
    bool validate();
    qint64 save(std::optional<qint64> key);
    void totals();
    void total(const Field &price);
    Row row() const;

    struct Amount
    {
        std::optional<qint64> number;
        bool isExact = false; ///< not typed: shown as the file has it
    };
    QMap<QString, Amount> m_amounts;
    QString m_entered;
};

} // namespace obelmark::walk
