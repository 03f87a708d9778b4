// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/DamageSupport.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace obelmark {

using namespace Qt::StringLiterals;

StoredRows storedRows(const QString &path, const QString &table)
{
    SQLite::Database database(path.toStdString());
    SQLite::Statement query(database, "select * from " + table.toStdString());
    StoredRows rows;
    while (query.executeStep()) {
        QByteArrayList columns;
        for (int i = 0; i < query.getColumnCount(); ++i) {
            const SQLite::Column column = query.getColumn(i);
            columns << QByteArray::number(column.getType()) + column.getText();
        }
        rows.emplace(query.getColumn(0).getInt64(), columns);
    }
    return rows;
}

QString integrity(const QString &path)
{
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
    return QString::fromStdString(database.execAndGet("pragma integrity_check").getString());
}

void addCoins(const QString &path, int coins)
{
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
    database.exec("begin");
    SQLite::Statement coin(database, R"(
        with n(i) as (values (1) union all select i + 1 from n where i <= ?1)
        insert into Coin (coinid, descr, descrsort, catnum, catnumsort, face, Year, quantity, catid, issuedate,
                          priceask, notes)
        select i, 'Übung ' || (i * 7919 % ?1), 'ubung ' || (i * 7919 % ?1), 'N' || i, 'n' || i, i * 25000,
               iif(i % 5, 1800 + i % 200, null), i % 7, i % 50 + 1, iif(i % 2, '1852-05-03', null), -i * 3,
               iif(i % 3, null, replace(printf('%.*c', i % 97 * iif(i % 100, 1, 60), 'x'), 'x', 'note ' || i || ' '))
        from n where i % 37 <> 5)");
    coin.bind(1, coins);
    coin.exec();
    database.exec(R"(
        with n(i) as (values (1) union all select i + 1 from n where i < 50)
        insert into category (catdesc, catdescsort) select 'Gruppe ' || i, 'gruppe ' || i from n)");
    database.exec("commit");
    // What is deleted now stays readable in pages that are free.
    database.exec(
        "pragma secure_delete = off;"
        "delete from Coin where coinid = (select max(coinid) from Coin) or coinid between 300 and 499");
}

QByteArray fileContent(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(path));
    return file.readAll();
}

void setFileContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}

} // namespace obelmark
