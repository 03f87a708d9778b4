// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/CannedReports.h"
#include "reports/ReportFixture.h"
#include "runtime/NumberedError.h"
#include "support/Cases.h"

using namespace obelmark;
using Answer = Desktop::Answer;

using Report = std::function<void(SharedState &, ReportPreview &)>;

namespace {

constexpr char16_t coins[] =
    u"delete from country; insert into country (couid, coudesc) values (1, 'Poland'), (2, 'Greece');"
    "delete from boughtfrom; insert into boughtfrom (bouid, bouDesc, BouPhone, bounotes, BouFav) values"
    " (1, 'Éva', '1|2', 'first line' || char(13, 10) || 'second; last', 1), (2, 'Bob', null, null, null);"
    "insert into Coin (descr, catnum, face, Year, quantity, couid, bouid, pricepaid, catvalue, priceask, "
    "forsale,"
    " sold, wantlist) values"
    " ('Zloty', 'Y 1', 10000, 1932, 3, 1, 2, 25000, 40000, 123456700, 1, 0, 0),"
    " ('a|b;c \"d\" <e> & %1', null, null, null, null, null, null, null, 10000, null, null, null, null),"
    " ('Δραχμή', 'KM 5', 5000, 1973, 2, 2, 1, 12345, 1234567800, null, 0, 0, 0),"
    " ('Penny', null, null, null, 1, null, null, 75000, null, null, 0, 1, 0),"
    " ('Shilling', null, null, null, 2, null, null, 15000, 99, 61725, 1, 1, 0),"
    " ('Laurel', null, 200000, 1620, 1, 2, null, null, null, null, 0, 0, 1),"
    " ('Unicorn', null, null, null, 5, null, null, 100000, null, null, 0, 0, 1)";

const QStringList htmlEnd{u"</table>"_s,
                          u"<H6>List Produced by <A HREF=\"https://obelmark.example/\">Obelmark</A></H6>"_s,
                          u"</body>"_s, u"</html>"_s};

/// The grouped list of that mode; the selection dialog is answered with the key, or cancelled.
Report coinsBy(qint16 mode, std::optional<qint32> selected)
{
    return [=](SharedState &shared, ReportPreview &preview) {
        shared.ReportGroupMode = Lookup(mode);
        RptCoinsBy(shared, preview, [&] {
            shared.FindCancelled = !selected;
            shared.SelectedGroupID = selected.value_or(0);
        });
    };
}

const std::map<QString, Report> reports{{u"coin list"_s, RptCoinList}, {u"by country"_s, coinsBy(3, -1)},
                                        {u"value"_s, RptValue},        {u"sales"_s, RptSales},
                                        {u"for sale"_s, RptForSale},   {u"want list"_s, RptWantList},
                                        {u"sellers"_s, RptSellers}};

} // namespace

class CannedReportsTest : public QObject
{
    Q_OBJECT
private slots:
    void files_data() { cases::add(); }
    void files()
    {
        const auto [name, textName, htmlName, label] = cases::row<4>();
        for (const bool isText : {true, false}) {
            ReportFixture f(QString::fromUtf16(coins));
            f.shared.OutputTarget = isText ? ReportKind::TextFile : ReportKind::HtmlFile;
            f.desktop.answerSaveFile(isText ? textName : htmlName,
                                     isText ? u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s
                                            : label + u" Files (*.htm)|*.htm|All Files (*.*)|*.*"_s,
                                     f.file());
            reports.at(name)(f.shared, f.preview);
            QCOMPARE(f.desktop.problems(), QStringList());
            QStringList lines =
                cases::linesOf(u"CannedReports"_s, name + (isText ? u", text"_s : u", web"_s));
            if (!isText)
                lines << htmlEnd;
            const QString expected = lines.join(u"\r\n"_s).replace(u"\\t"_s, u"\t"_s) + u"\r\n"_s;
            QCOMPARE(QString::fromUtf8(f.content()), expected);
            QVERIFY(f.shared.RepeatHeading);
            QCOMPARE(f.preview.shows, 0);
        }
    }

    // The six modes of the grouped list: each by its own table, one entry alone.
    void groups_data() { cases::add(); }
    void groups()
    {
        const auto [number, table, key, description, title, heading] = cases::row<6>();
        const auto mode = qint16(number.toInt());
        ReportFixture f(u"delete from %1; insert into %1 (%2, %3) values (7, 'Beta'), (8, 'Alpha');"
                        "insert into Coin (descr, catnum, face, Year, quantity, %2) values"
                        " ('one', 'c', 10000, 1900, 4, 7), ('other', 'd', null, null, 9, 8),"
                        " ('Five', null, null, 2001, 6, 7)"_s.arg(table, key, description));
        f.shared.OutputTarget = ReportKind::HtmlFile;
        f.desktop.answerSaveFile(u"coin.htm"_s, u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s, f.file());
        coinsBy(mode, 7)(f.shared, f.preview);
        QCOMPARE(f.desktop.problems(), QStringList());
        const QString lines = QString::fromUtf8(f.content());
        QVERIFY(lines.contains(u"<title>%1</title>"_s.arg(title)));
        QVERIFY(
            lines.contains(u"<tr><th colspan=5>%1</th></tr>\r\n<tr><th>%2</th>\r\n"_s.arg(title, heading)));
        QCOMPARE(lines.section(u"Quantity</th></tr>\r\n"_s, 1).section(u"</table>"_s, 0, 0),
                 QString(u"<tr><td>Beta</td><td>Five</td><td></td><td>&nbsp;</td><td>2001</td>"
                         "<td align=right>6</td></tr>\r\n"
                         "<tr><td>Beta</td><td>one</td><td>c</td><td align=right>$1.00</td><td>1900</td>"
                         "<td align=right>4</td></tr>\r\n"
                         "<tr><td>Total Coins</td><td align=right colspan=5>10</td></tr>\r\n"_s));
        f.shared.OutputTarget = ReportKind::Preview;
        coinsBy(mode, {})(f.shared, f.preview);
        QCOMPARE(f.preview.shows, 0);
        coinsBy(mode, -1)(f.shared, f.preview);
        QCOMPARE(f.preview.shows, 1);
        QCOMPARE(f.preview.document().pageText(0).section(u'\n', 1, 1),
                 heading + u"\tDescription\tCat #\tFace Value\tYear\tQuantity"_s);
    }

    void otherRegion()
    {
        ReportFixture f(QString::fromUtf16(coins), QLocale(u"de_DE"_s));
        f.shared.OutputTarget = ReportKind::TextFile;
        f.answerTextFile(u"Sales.txt"_s, f.file());
        RptSales(f.shared, f.preview);
        const QString lines = QString::fromUtf8(f.content());
        QVERIFY(lines.startsWith(u"Penny\t\t1\t7,50\u00A0€\t"_s));
        QVERIFY(lines.endsWith(u"\r\n\t\t3\t\t10,5\t\t12,345\r\n\t\t\t\t\t\t1,845\r\n"_s));
    }

    void withoutRows_data() { cases::add(); }
    void withoutRows()
    {
        const auto [name, textName, message] = cases::row<3>();
        const Report &report = reports.at(name);
        ReportFixture f;
        f.shared.OutputTarget = ReportKind::TextFile;
        f.writeFile("old");
        f.answerTextFile(textName, f.file());
        f.answerReplace(Answer::Yes);
        f.desktop.expectMessage(message);
        report(f.shared, f.preview);
        QCOMPARE(f.content(), QByteArray());
        f.shared.OutputTarget = ReportKind::Preview;
        f.desktop.expectMessage(message);
        report(f.shared, f.preview);
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.preview.shows, 0);
        QVERIFY(!f.desktop.hourglass());
    }

    void webTableWithoutRows()
    {
        ReportFixture f;
        f.shared.OutputTarget = ReportKind::HtmlFile;
        f.desktop.answerSaveFile(u"sellers.htm"_s, u"html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s,
                                 f.file());
        f.desktop.expectMessage(u"You have not entered any Coin Sellers!"_s);
        RptSellers(f.shared, f.preview);
        QVERIFY(f.content().endsWith("<th>Phone</th>\r\n<th>Notes</tr>\r\n"));
    }

    void onThePreview()
    {
        ReportFixture f(QString::fromUtf16(coins));
        RptValue(f.shared, f.preview);
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.preview.shows, 1);
        const ReportDocument &document = f.preview.document();
        QCOMPARE(document.title(), u"Coin Value Report"_s);
        QCOMPARE(document.rowCount(), 6); // the description with a ";" takes two
        const auto placeOf = [&](const QString &text) {
            const auto match = document.find(text, {0, 0, -1}, SearchDirection::Forwards);
            return match ? u"row %1, cell %2"_s.arg(match->row).arg(match->cell) : u"nowhere"_s;
        };
        QCOMPARE(placeOf(u"$123,456.78"_s), u"row 3, cell 5"_s);
        QCOMPARE(placeOf(u"$246,925.56"_s), u"row 4, cell 3"_s);
        QCOMPARE(placeOf(u"$246,915.59"_s), u"row 5, cell 1"_s);
        QVERIFY(f.preview.hourglassSeen);
        QVERIFY(!f.desktop.hourglass());
        QCOMPARE(document.pageText(0).section(u'\n', 1, 1),
                 u"Description\tCat #\tQuantity\tPaid Each\tTotal Paid\tValue Each\tTotal Value"_s);
    }

    // Whatever comes between the question for the file and the last row, a file that stood there stays.
    void fileIsKept_data() { cases::add(); }
    void fileIsKept()
    {
        const auto [name, path, cancelAt, replace, message] = cases::row<5>();
        ReportFixture f(u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 3000)"
                        "insert into Coin (descr) select 'Coin ' || i from n"_s);
        QVERIFY(QDir().mkdir(u"images"_s));
        f.writeFile("old");
        const QString file = f.collection.folder() + path;
        f.shared.OutputTarget = ReportKind::TextFile;
        f.answerTextFile(u"CoinDesc.txt"_s, file);
        if (QFile::exists(file) && !message.contains(u"belongs"_s))
            f.answerReplace(replace == u"yes" ? Answer::Yes : Answer::No, file);
        if (!message.isEmpty())
            f.desktop.expectMessage(u"The report could not be written.  "_s + message.arg(file));
        f.desktop.cancelProgressAt(cancelAt.toInt());
        const QStringList before = f.filesInFolder();
        RptCoinList(f.shared, f.preview);
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.content(), QByteArray("old"));
        QCOMPARE(f.filesInFolder(), before);
        QVERIFY(!f.desktop.hourglass());
    }

    void cancelled()
    {
        ReportFixture f(u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 1000)"
                        "insert into Coin (descr) select 'Coin ' || i from n"_s);
        f.desktop.cancelProgressAt(2);
        RptCoinList(f.shared, f.preview);
        const QString shown = f.preview.document().title();
        RptValue(f.shared, f.preview);
        f.desktop.expectMessage(u"You have not entered any Coin Sellers!"_s);
        RptSellers(f.shared, f.preview);
        QCOMPARE(f.preview.shows, 1);
        QCOMPARE(f.preview.document().title(), shown);
        QCOMPARE(f.preview.document().rowCount(), 1000);
        QVERIFY(!f.desktop.hourglass());
        f.shared.OutputTarget = ReportKind::TextFile;
        f.answerTextFile(u"CoinDesc.txt"_s, {});
        RptCoinList(f.shared, f.preview);
        QVERIFY(f.shared.FindCancelled);
        QCOMPARE(f.desktop.problems(), QStringList());
    }

    void sumsTooLarge()
    {
        // A quantity, a product, a sum, a difference.
        for (const QString &values :
             {u"(2147483647, null, null), (1, null, null)"_s, u"(2147483647, 9000000000000000, null)"_s,
              u"(1, null, 9000000000000000000), (1, null, 9000000000000000000)"_s,
              u"(1, -9000000000000000000, 9000000000000000000)"_s}) {
            ReportFixture f(u"insert into Coin (quantity, pricepaid, catvalue) values "_s + values);
            f.shared.OutputTarget = ReportKind::TextFile;
            f.answerTextFile(u"Value.txt"_s, f.file());
            try {
                RptValue(f.shared, f.preview);
                QFAIL("no overflow");
            } catch (const NumberedError &error) {
                QCOMPARE(error.number(), int(Overflow));
            }
            QVERIFY(!QFile::exists(f.file()));
            QVERIFY(!f.desktop.hourglass());
        }
    }
};

QTEST_MAIN(CannedReportsTest)
#include "CannedReports.moc"
