// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "OldCollectionFixture.h"
#include "engine/rows/Database.h"
#include "old_collections/FileExchange.h"
#include "old_collections/OldText.h"
#include "store/CoinFile.h"
#include <QTest>
#include <filesystem>

using namespace obelmark;

namespace {

/// A cell as coin.expected.tsv writes it.
QString cellText(const SQLite::Column &cell, const QString &type)
{
    if (cell.isNull())
        return u"\\N"_s;
    if (type == u"money") {
        const qint64 count = cell.getInt64();
        const quint64 size = count < 0 ? 0 - quint64(count) : quint64(count);
        return (count < 0 ? u"-"_s : QString()) + QString::number(size / 10000) + u'.' +
               QString::number(size % 10000).rightJustified(4, u'0');
    }
    QString text = QString::fromStdString(cell.getString());
    text.replace(u"\\"_s, u"\\\\"_s).replace(u"\t"_s, u"\\t"_s);
    return text.replace(u"\r"_s, u"\\r"_s).replace(u"\n"_s, u"\\n"_s);
}

QStringList contents(const QString &path)
{
    SQLite::Database database(path.toStdString());
    QStringList lines;
    for (const char *table :
         {"category", "condition", "country", "format", "mint", "type", "boughtfrom", "Coin"}) {
        SQLite::Statement rows(database, std::string("select * from ") + table + " order by 1");
        while (rows.executeStep()) {
            QStringList cells{QString::fromLatin1(table)};
            for (int i = 0; i < rows.getColumnCount(); ++i) {
                if (!QByteArray(rows.getColumnName(i)).endsWith("sort") ||
                    QByteArray(rows.getColumnName(i)) == "catsort")
                    cells << cellText(rows.getColumn(i), QString::fromLatin1(rows.getColumnDeclaredType(i)));
            }
            lines << cells.join(u'\t');
        }
    }
    return lines;
}

const QString wholeReport = u"'coin.mdb' has been taken over.  The old file was kept as 'coin-old.mdb'.\n\n"
                            "Records in each table:\nCoin: 409\nboughtfrom: 4\ncategory: 6\ncondition: 8\n"
                            "country: 9\nformat: 5\nmint: 7\ntype: 4"_s;
const QString title = u"Older Version"_s;

} // namespace

class TakeOver : public QObject
{
    Q_OBJECT
private slots:
    void wholeCollection()
    {
        OldCollectionFixture f;
        // Of a database that had the name before: it must not be undone in the new one.
        f.write(u"coin.mdb-journal"_s, "journal");
        f.agree();
        f.desktop.expectMessage(wholeReport, title);
        QVERIFY(f.takeOver());
        QCOMPARE(f.desktop.problems(), QStringList());
        QVERIFY(f.desktop.progressLooks() > 400);
        QCOMPARE(f.read(u"coin-old.mdb"_s), f.original());
        QCOMPARE(f.files(), (QStringList{u"coin-old.mdb"_s, u"coin-old.mdb-journal"_s, u"coin.mdb"_s}));

        const QStringList lines =
            QString::fromUtf8(f.dataFile("coin.expected.tsv")).split(u'\n', Qt::SkipEmptyParts);
        const QStringList found = contents(f.path(u"coin.mdb"_s));
        QCOMPARE(found.size(), lines.size());
        for (qsizetype i = 0; i < lines.size(); ++i)
            QCOMPARE(found[i], lines[i]);

        {
            const auto database = openCoinDatabase(f.path(u"coin.mdb"_s));
            const auto coins = openCoins(*database);
            coins->addNew();
            QCOMPARE(coins->value(u"coinid"), Value(421)); // eleven were deleted behind the last
        }
        QCOMPARE(f.query(u"select count(*) from Coin where descr is not null and descrsort is null"_s),
                 QStringList{u"0"_s});
        QVERIFY(f.takeOver()); // now there is nothing to ask
        QCOMPARE(f.desktop.problems(), QStringList());
    }

    void textsAreDecoded()
    {
        QCOMPARE(decodeOldText({}), u""_s);
        QCOMPARE(decodeOldText("\x41\x00\x16\x04"_ba), u"A\u0416"_s);
        QCOMPARE(decodeOldText("\x3d\xd8\x80\xde"_ba), u"\U0001F680"_s);
        const QByteArray packed = "\xff\xfe"_ba;
        QCOMPARE(decodeOldText(packed + "Gr\xfc\xdf"
                                        "e"_ba),
                 u"Gr\u00fc\u00dfe"_s);
        QCOMPARE(decodeOldText(packed + "A\x00\x16\x04\x30\x04\x00Z"_ba),
                 u"A\u0416\u0430Z"_s);                            // not all of it
        QCOMPARE(decodeOldText("\x41\x00\x42"_ba), std::nullopt); // half a character
    }

    void answeredNo()
    {
        OldCollectionFixture f;
        f.agree(u"coin-old.mdb"_s, Desktop::Answer::No);
        QVERIFY(!f.takeOver());
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.files(), QStringList{u"coin.mdb"_s});
        QCOMPARE(f.read(u"coin.mdb"_s), f.original());
    }

    void otherFilesAreLeftAlone()
    {
        for (const QByteArray &content :
             {"SQLite format 3"_ba.append('\0'), QByteArray(), "Standard Jet DB"_ba}) {
            OldCollectionFixture f;
            f.write(u"coin.mdb"_s, content);
            QVERIFY(f.takeOver());
            QCOMPARE(f.desktop.problems(), QStringList());
            QCOMPARE(f.read(u"coin.mdb"_s), content);
        }
    }

    void nameOfOldFile()
    {
        for (const auto &[taken, name] :
             {std::pair(QStringList{u"coin-old.mdb"_s, u"coin-old-2.mdb"_s}, u"coin-old-3.mdb"_s),
              {QStringList(), u"coin-old.mdb"_s}}) {
            OldCollectionFixture f;
            for (const QString &other : taken)
                f.write(other, "somebody else's");
            if (taken.isEmpty()) { // what the machine's stop leaves: two names of the old file, and the new
                                   // one
                std::filesystem::create_hard_link(f.path(u"coin.mdb"_s).toStdString(),
                                                  f.path(u"coin-old.mdb"_s).toStdString());
                f.write(u"coin-taking-over.mdb"_s, "SQLite format 3, in part");
                f.write(u"coin-taking-over.mdb-journal"_s, "its journal");
            }
            f.agree(name);
            f.desktop.expectMessage(QString(wholeReport).replace(u"coin-old.mdb"_s, name), title);
            QVERIFY(f.takeOver());
            QCOMPARE(f.desktop.problems(), QStringList());
            QCOMPARE(f.read(name), f.original());
            for (const QString &other : taken)
                QCOMPARE(f.read(other), "somebody else's"_ba);
            QCOMPARE(f.files().size(), taken.size() + 2);
            QCOMPARE(f.query(u"select count(*) from Coin"_s), QStringList{u"409"_s});
        }
    }

    void grownRow()
    {
        for (const auto &[mark, categories] :
             {std::pair(0x4000, 6), {0xc000, 5}}) // the latter was then deleted
        {
            OldCollectionFixture f;
            QByteArray bytes = f.original();
            const qsizetype page = pageOf(bytes, u"Circulating");
            constexpr qsizetype countAt = 12;
            constexpr qsizetype firstSlotAt = 14;
            // The copy of the page at the file's end has the row; here is only the way to it.
            const qsizetype newPage = bytes.size();
            bytes += bytes.sliced(page, oldPageSize);
            const auto start = numberAt<quint16>(bytes, page + firstSlotAt);
            const auto rows = numberAt<quint16>(bytes, page + countAt);
            QCOMPARE(rows, quint16(6));
            putNumber<quint16>(bytes, newPage + firstSlotAt, start | 0x8000);
            for (int row = 1; row < rows; ++row)
                bytes[newPage + firstSlotAt + 2 * row + 1] =
                    char(bytes[newPage + firstSlotAt + 2 * row + 1] | 0xc0);
            putNumber<quint16>(bytes, page + firstSlotAt, quint16(start | mark));
            putNumber<quint32>(bytes, page + start, quint32(newPage / oldPageSize) << 8);
            declareRows(bytes, page, categories);
            f.write(u"coin.mdb"_s, bytes);
            f.agree();
            f.desktop.expectMessage(
                QString(wholeReport).replace(u"category: 6"_s, u"category: %1"_s.arg(categories)), title);
            QVERIFY(f.takeOver());
            QCOMPARE(f.desktop.problems(), QStringList());
            QCOMPARE(f.query(u"select catdesc from category where catid = 1"_s),
                     categories == 6 ? QStringList{u"Circulating"_s} : QStringList());
        }
    }

    /// An older version's file may lack columns, and a user's own tool may have added some.
    void renamedColumnsAndTables()
    {
        OldCollectionFixture f;
        QByteArray bytes = f.original();
        const auto rename = [&](QStringView from, QStringView to) {
            bytes.replace(inFile(from), inFile(to));
        };
        rename(u"misc1", u"mine1");
        rename(u"catnum", u"CATNUM");
        rename(u"mint", u"mimt");
        f.write(u"coin.mdb"_s, bytes);
        const QString lists =
            u"Records in each table:\nCoin: 409\n    left empty, not in the old file: misc1\n"
            "boughtfrom: 4\ncategory: 6\ncondition: 8\ncountry: 9\nformat: 5\n"
            "mint: not found in the old file\ntype: 4\n\n"
            "This program has no place for these, so they are only in the old file:\n"
            "Coin.mine1: %1 values\nmimt: 7 records"_s;
        int filled = 0;
        for (const QByteArray &line : f.dataFile("coin.expected.tsv").split('\n')) {
            const QList<QByteArray> cells = line.split('\t');
            if (cells[0] == "Coin" && cells[31] != "\\N" && !cells[31].isEmpty())
                ++filled;
        }
        f.agree();
        f.desktop.answerYesNo(
            u"'coin.mdb' is damaged: not everything in it can be read.\n\n%1\n\n"
            "Do you wish to take over what can be read?  The old file is kept either way."_s.arg(
                lists.arg(filled)),
            title, Desktop::Answer::Yes);
        f.desktop.expectMessage(wholeReport.section(u"Records"_s, 0, 0) + lists.arg(filled), title);
        QVERIFY(f.takeOver());
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.query(u"select count(misc1), count(nullif(catnum, '')) > 100 from Coin"_s),
                 QStringList{u"0|1"_s});
    }

    /// Values at the ends of what their types hold, and a moment of a day before 1900.
    void extremes()
    {
        OldCollectionFixture f;
        QByteArray bytes = f.original();
        const auto change = [&](auto from, auto to) {
            QByteArray old(sizeof from, Qt::Uninitialized);
            QByteArray changed = old;
            qToLittleEndian(from, old.data());
            qToLittleEndian(to, changed.data());
            bytes.replace(old, changed);
        };
        change(qint64(1782500), std::numeric_limits<qint64>::min()); // the face value of the first coin
        change(qint64(3978850), std::numeric_limits<qint64>::max()); // its price
        change(double(22753), -36500.25);                            // its issue date
        f.write(u"coin.mdb"_s, bytes);
        f.agree();
        f.desktop.expectMessage(wholeReport, title);
        QVERIFY(f.takeOver());
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.query(u"select face, pricepaid, issuedate from Coin where coinid = 1"_s),
                 QStringList{u"-9223372036854775808|9223372036854775807|1800-01-23T06:00:00"_s});
    }

    /// One question for both files; a catalogue that cannot be read does not keep the program from going on.
    void reportFields()
    {
        OldCollectionFixture f;
        f.write(u"rptspec.mdb"_s, f.original());
        f.desktop.answerYesNo(
            u"'coin.mdb' and 'rptspec.mdb' in the program folder were written by an older version of this "
            u"program, "
            "whose files this version cannot use as they are.  The contents can be taken over into new "
            "files.\n\n"
            "Nothing is lost: the old files are kept as 'coin-old.mdb' and 'rptspec-old.mdb'.\n\n"
            "Do you wish to take over the contents now?  If not, the program ends and nothing is changed."_s,
            title, Desktop::Answer::Yes);
        f.desktop.expectMessage(wholeReport, title);
        f.desktop.expectMessage(
            u"'rptspec.mdb' could not be taken over and is as it was.\n\nIt has no table 'RptSpec':  it is damaged, or no file of this program."_s,
            title);
        QVERIFY(f.takeOver());
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.files(), (QStringList{u"coin-old.mdb"_s, u"coin.mdb"_s, u"rptspec.mdb"_s}));
        QCOMPARE(f.read(u"rptspec.mdb"_s), f.original());
    }

    /// The engine of the 1990s: other pages, texts in a code page. The file stands for both databases.
    void thirdVersion()
    {
        OldCollectionFixture f;
        for (const QString &name : {u"coin.mdb"_s, u"rptspec.mdb"_s})
            f.write(name, f.dataFile("third-version.mdb"));
        Agreeing user;
        QVERIFY(f.takeOver(user));
        QCOMPARE(user.messages.size(), 2);
        QVERIFY2(user.messages[0].contains(u"\nCoin: 4\n    left empty, not in the old file: catnum, "_s),
                 qPrintable(user.messages[0]));
        QVERIFY2(user.messages[0].endsWith(u"\nRptSpec: 2 records"_s), qPrintable(user.messages[0]));
        QCOMPARE(
            f.query(
                u"select coinid, descr, face, wantlist, issuedate, length(notes), misc1, sold from Coin"_s),
            (QStringList{u"1|Größe|-12345|1|1800-01-23T06:00:00|4||0"_s, u"2|\\N|\\N|0|\\N|900|\\N|1"_s,
                         u"3|three|9223372036854775807|0|2000-01-01|9800|m|1"_s,
                         u"7|old row|1|0|\\N|\\N|last|1"_s}));
        QCOMPARE(
            f.query(
                u"select count(*) from Coin where notes in (replace(hex(zeroblob(75)), '00', 'Größe ') || "
                "replace(hex(zeroblob(75)), '00', 'Größe '), replace(hex(zeroblob(200)), '00', 'Zürich §' || "
                "replace(hex(zeroblob(40)), '00', 'x') || ' '))"_s),
            QStringList{u"2"_s});
        QCOMPARE(f.query(u"select seq from sqlite_sequence where name = 'Coin'"_s), QStringList{u"9"_s});
        QCOMPARE(f.query(u"select specid, Desc, defwidth, FileName, ismemo from RptSpec"_s, u"rptspec.mdb"_s),
                 (QStringList{u"7|Description|2.5|\\N|0"_s, u"300|Notes on Seller|\\N|boughtfrom|1"_s}));
    }
};

QTEST_GUILESS_MAIN(TakeOver)
#include "TakeOver.moc"
