#include "reports/CannedReports.h"
#include "reports/ReportFixture.h"
#include "runtime/NumberedError.h"

#include <QDir>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;
using Answer = Desktop::Answer;

using Report = std::function<void(SharedState &, ReportPreview &)>;
Q_DECLARE_METATYPE(Report)

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

constexpr char htmlEnd[] = "</table>\n"
                           "<H6>List Produced by <A HREF=\"https://obelmark.example/\">Obelmark</A></H6>\n"
                           "</body>\n</html>\n";

QByteArray crLf(QByteArray lines)
{
    return lines.replace('\n', "\r\n");
}

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

} // namespace

class CannedReportsTest : public QObject
{
    Q_OBJECT
private slots:
    void files_data()
    {
        QTest::addColumn<Report>("report");
        QTest::addColumn<int>("target");
        QTest::addColumn<QString>("proposedName");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QByteArray>("lines");
        const auto add = [](const char *name, const Report &report, const QString &textName,
                            const QByteArray &text, const QString &htmlName, const QString &htmlLabel,
                            const QByteArray &html) {
            QTest::addRow("%s, text", name)
                << report << 2 << textName << u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s << text;
            QTest::addRow("%s, web", name)
                << report << 3 << htmlName << htmlLabel + u" Files (*.htm)|*.htm|All Files (*.*)|*.*"_s
                << html + htmlEnd;
        };
        add("coin list", RptCoinList, u"CoinDesc.txt"_s,
            "a\tbc \"d\" <e> & %1\t\t\t\t\n"
            "Zloty\tY 1\t$1.00\t1932\t3\n"
            "Δραχμή\tKM 5\t$0.50\t1973\t2\n",
            u"coindesc.htm"_s, u"Html"_s,
            "<html>\n<head><title>Coin List</title></head>\n<body>\n<table border=1>\n<tr><th colspan=4>Coin "
            "List</th></tr>\n<tr><th>Description</th>\n<th>Cat #</th>\n<th>Face "
            "Value</th>\n<th>Year</th>\n<th>Quantity</th></tr>\n"
            R"(<tr><td>a|b;c "d" <e> & %1</td><td></td><td>&nbsp;</td><td></td><td></td></tr>
<tr><td>Zloty</td><td>Y 1</td><td>$1.00</td><td>1932</td><td>3</td></tr>
<tr><td>Δραχμή</td><td>KM 5</td><td>$0.50</td><td>1973</td><td>2</td></tr>
)");
        add("by country", coinsBy(3, -1), u"Coin.txt"_s,
            "\ta\tbc \"d\" <e> & %1\t\t\t\t\n"
            "Greece\tΔραχμή\tKM 5\t$0.50\t1973\t2\n"
            "Poland\tZloty\tY 1\t$1.00\t1932\t3\n"
            "\t\t\t\t\t5\n",
            u"coin.htm"_s, u"Html"_s,
            "<html>\n<head><title>Coins by Country</title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=5>Coins by Country</th></tr>\n<tr><th>Country</th>\n<th>Description</th>\n<th>Cat "
            "#</th>\n<th>Face Value</th>\n<th>Year</th>\n<th>Quantity</th></tr>\n"
            R"(<tr><td></td><td>a|b;c "d" <e> & %1</td><td></td><td>&nbsp;</td><td></td><td align=right></td></tr>
<tr><td>Greece</td><td>Δραχμή</td><td>KM 5</td><td align=right>$0.50</td><td>1973</td><td align=right>2</td></tr>
<tr><td>Poland</td><td>Zloty</td><td>Y 1</td><td align=right>$1.00</td><td>1932</td><td align=right>3</td></tr>
<tr><td>Total Coins</td><td align=right colspan=5>5</td></tr>
)");
        add("value", RptValue, u"Value.txt"_s,
            "a\tbc \"d\" <e> & %1\t\t\t$0.00\t\t$1.00\t\n"
            "Zloty\tY 1\t3\t$2.50\t$7.50\t$4.00\t$12.00\n"
            "Δραχμή\tKM 5\t2\t$1.23\t$2.47\t$123,456.78\t$246,913.56\n"
            "\t\t5\t\t$9.97\t\t$246,925.56\n"
            "\t\t\t\t\t\t$246,915.59\n",
            u"value.htm"_s, u"html"_s,
            "<html>\n<head><title>Coin Collection Value </title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=7>Coin Collection Value</th></tr>\n<tr><th>Description</th>\n<th>Cat "
            "#</th>\n<th>Quantity</th>\n<th>Paid Each</th>\n<th>Total Paid</th>\n<th>Value "
            "Each</th>\n<th>Total Value</th></tr>\n"
            R"(<tr><td>a|b;c "d" <e> & %1</td><td></td><td align=right></td><td align=right>$0.00</td><td align=right></td><td align=right>$1.00</td><td align=right></td></tr>
<tr><td>Zloty</td><td>Y 1</td><td align=right>3</td><td align=right>$2.50</td><td align=right>$7.50</td><td align=right>$4.00</td><td align=right>$12.00</td></tr>
<tr><td>Δραχμή</td><td>KM 5</td><td align=right>2</td><td align=right>$1.23</td><td align=right>$2.47</td><td align=right>$123,456.78</td><td align=right>$246,913.56</td></tr>
<tr><td>Totals</td><td align=right colspan=2>5</td><td align=right colspan=2>$9.97</td><td align=right colspan=2>$246,925.56</td></tr>
<tr><td>Value Minus Cost</td><td align=right colspan=6>$246,915.59</td></tr>
)");
        add("sales", RptSales, u"Sales.txt"_s,
            "Penny\t\t1\t$7.50\t$7.50\t$0.00\t$0.00\n"
            "Shilling\t\t2\t$1.50\t$3.00\t$6.17\t$12.35\n"
            "\t\t3\t\t10.5\t\t12.345\n"
            "\t\t\t\t\t\t1.845\n",
            u"sales.htm"_s, u"Html"_s,
            "<html>\n<head><title>Coin Sales Report</title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=7>Coin Sales Report</th></tr>\n<tr><th>Description</th>\n<th>Cat "
            "#</th>\n<th>Quantity</th>\n<th>Paid Each</th>\n<th>Total Paid</th>\n<th>Sale Price "
            "Each</th>\n<th>Total Sales</th></tr>\n"
            R"(<tr><td>Penny</td><td></td><td align=right>1</td><td align=right>$7.50</td><td align=right>$7.50</td><td align=right>$0.00</td><td align=right>$0.00</td></tr>
<tr><td>Shilling</td><td></td><td align=right>2</td><td align=right>$1.50</td><td align=right>$3.00</td><td align=right>$6.17</td><td align=right>$12.35</td></tr>
<tr><td>Totals</td><td align=right colspan=2>3</td><td align=right colspan=2>$10.50</td><td align=right colspan=2>$12.35</td></tr>
<tr><td>Sale Price Minus Cost</td><td align=right colspan=6>$1.85</td></tr>
)");
        add("for sale", RptForSale, u"ForSale.txt"_s,
            "Shilling\t\t\t$0.00\t\t$6.17\n"
            "Zloty\tY 1\tPoland\t$1.00\t1932\t$12,345.67\n",
            u"forsale.htm"_s, u"Html"_s,
            "<html>\n<head><title>Coins For Sale</title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=4>Coins For Sale</th></tr>\n<tr><th>Description</th>\n<th>Cat "
            "#</th>\n<th>Country</th>\n<th>Face</th>\n<th>Year</th>\n<th>Price</th></tr>\n"
            R"(<tr><td>Shilling</td><td></td><td></td><td>$0.00</td><td></td><td align=right>$6.17</td></tr>
<tr><td>Zloty</td><td>Y 1</td><td>Poland</td><td>$1.00</td><td>1932</td><td align=right>$12,345.67</td></tr>
)");
        add("want list", RptWantList, u"WantList.txt"_s,
            "Laurel\t\tGreece\t$20.00\t1620\t$0.00\n"
            "Unicorn\t\t\t\t\t$10.00\n"
            "\t\t\t\t\t$10.00\n",
            u"wantlist.htm"_s, u"Html"_s,
            "<html>\n<head><title>Coin Want List </title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=4>Coin Want List</th></tr>\n<tr><th>Description</th>\n<th>Cat "
            "#</th>\n<th>Country</th>\n<th>Face</th>\n<th>Year</th>\n<th>Will Pay</th></tr>\n"
            R"(<tr><td>Laurel</td><td></td><td>Greece</td><td align=right>$20.00</td><td>1620</td><td align=right>$0.00</td></tr>
<tr><td>Unicorn</td><td></td><td></td><td>&nbsp;</td><td></td><td align=right>$10.00</td></tr>
<tr><td align=right colspan=5>$10.00</td></tr>
)");
        add("sellers", RptSellers, u"Sellers.txt"_s,
            "\tBob\t\t\n"
            " * \tÉva\t1\t2\tfirst line\nsecond last\n",
            u"sellers.htm"_s, u"html"_s,
            "<html>\n<head><title>Seller List</title></head>\n<body>\n<table border=1>\n<tr><th "
            "colspan=4>Seller "
            "List</th></tr>\n<tr><th>Favorite</th>\n<th>Seller</th>\n<th>Phone</th>\n<th>Notes</tr>\n"
            R"(<tr><td></td><td>Bob</td><td></td><td></td></tr>
<tr><td align=center>*</td><td>Éva</td><td>1|2</td><td>first line
second; last</td></tr>
)");
    }
    void files()
    {
        QFETCH(Report, report);
        QFETCH(int, target);
        QFETCH(QString, proposedName);
        QFETCH(QString, filter);
        QFETCH(QByteArray, lines);
        ReportFixture f(QString::fromUtf16(coins));
        f.shared.OutputTarget = ReportKind(target);
        f.desktop.answerSaveFile(proposedName, filter, f.file());
        report(f.shared, f.preview);
        QCOMPARE(f.desktop.problems(), QStringList());
        QCOMPARE(f.content(), crLf(lines));
        QVERIFY(f.shared.RepeatHeading);
        QCOMPARE(f.preview.shows, 0);
    }

    // The six modes of the grouped list: each by its own table, one entry alone.
    void groups_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("description");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("heading");
        QTest::newRow("1") << 1 << u"category"_s << u"catid"_s << u"catdesc"_s << u"Coins by Category"_s
                           << u"Category"_s;
        QTest::newRow("3") << 3 << u"country"_s << u"couid"_s << u"coudesc"_s << u"Coins by Country"_s
                           << u"Country"_s;
        QTest::newRow("4") << 4 << u"format"_s << u"forid"_s << u"fordesc"_s << u"Coins by Format"_s
                           << u"Format"_s;
        QTest::newRow("5") << 5 << u"mint"_s << u"minid"_s << u"mindesc"_s << u"Coins by Mint"_s << u"Mint"_s;
        QTest::newRow("6") << 6 << u"boughtfrom"_s << u"bouid"_s << u"boudesc"_s << u"Coins by Seller"_s
                           << u"Seller"_s;
        QTest::newRow("7") << 7 << u"type"_s << u"typid"_s << u"typdesc"_s << u"Coins by Type"_s << u"Type"_s;
    }
    void groups()
    {
        QFETCH(int, mode);
        QFETCH(QString, table);
        QFETCH(QString, key);
        QFETCH(QString, description);
        QFETCH(QString, title);
        QFETCH(QString, heading);
        ReportFixture f(u"delete from %1; insert into %1 (%2, %3) values (7, 'Beta'), (8, 'Alpha');"
                        "insert into Coin (descr, catnum, face, Year, quantity, %2) values"
                        " ('one', 'c', 10000, 1900, 4, 7), ('other', 'd', null, null, 9, 8),"
                        " ('Five', null, null, 2001, 6, 7)"_s.arg(table, key, description));
        f.shared.OutputTarget = ReportKind::HtmlFile;
        f.desktop.answerSaveFile(u"coin.htm"_s, u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s, f.file());
        coinsBy(qint16(mode), 7)(f.shared, f.preview);
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
        coinsBy(qint16(mode), {})(f.shared, f.preview);
        QCOMPARE(f.preview.shows, 0);
        coinsBy(qint16(mode), -1)(f.shared, f.preview);
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

    void withoutRows_data()
    {
        QTest::addColumn<Report>("report");
        QTest::addColumn<QString>("textName");
        QTest::addColumn<QString>("message");
        const QString reportable = u"You have not entered any reportable Coins!"_s;
        QTest::newRow("list") << Report(RptCoinList) << u"CoinDesc.txt"_s << reportable;
        QTest::newRow("grouped") << coinsBy(7, -1) << u"Coin.txt"_s << reportable;
        QTest::newRow("value") << Report(RptValue) << u"Value.txt"_s << reportable;
        QTest::newRow("sales") << Report(RptSales) << u"Sales.txt"_s
                               << u"You have not entered any Coins as sold."_s;
        QTest::newRow("for sale") << Report(RptForSale) << u"ForSale.txt"_s
                                  << u"You have not entered any Coins with the For Sale option checked."_s;
        QTest::newRow("want list") << Report(RptWantList) << u"WantList.txt"_s
                                   << u"You have not entered any want list Coins!"_s;
        QTest::newRow("sellers") << Report(RptSellers) << u"Sellers.txt"_s
                                 << u"You have not entered any Coin Sellers!"_s;
    }
    void withoutRows()
    {
        QFETCH(Report, report);
        QFETCH(QString, textName);
        QFETCH(QString, message);
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
    void fileIsKept_data()
    {
        QTest::addColumn<QString>("path"); // below the program folder
        QTest::addColumn<int>("cancelAt");
        QTest::addColumn<bool>("replace");
        QTest::addColumn<QString>("message");
        QTest::newRow("not to be replaced") << u"report.txt"_s << 0 << false << QString();
        QTest::newRow("cancelled at the second thousand of coins")
            << u"report.txt"_s << 2 << true << QString();
        QTest::newRow("no such folder") << u"none/report.txt"_s << 0 << true << u"Path not found: '%1'"_s;
        QTest::newRow("a folder") << u"images"_s << 0 << true
                                  << u"Path/File access error: '%1' (Is a directory)"_s;
        QTest::newRow("the collection") << u"coin.mdb"_s << 0 << true << u"'%1' belongs to the collection."_s;
    }
    void fileIsKept()
    {
        QFETCH(QString, path);
        QFETCH(int, cancelAt);
        QFETCH(bool, replace);
        QFETCH(QString, message);
        ReportFixture f(u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 3000)"
                        "insert into Coin (descr) select 'Coin ' || i from n"_s);
        QVERIFY(QDir().mkdir(u"images"_s));
        f.writeFile("old");
        const QString file = f.collection.folder() + path;
        f.shared.OutputTarget = ReportKind::TextFile;
        f.answerTextFile(u"CoinDesc.txt"_s, file);
        if (QFile::exists(file) && !message.contains(u"belongs"_s))
            f.answerReplace(replace ? Answer::Yes : Answer::No, file);
        if (!message.isEmpty())
            f.desktop.expectMessage(u"The report could not be written.  "_s + message.arg(file));
        f.desktop.cancelProgressAt(cancelAt);
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

    void sumsTooLarge_data()
    {
        QTest::addColumn<QString>("values"); // quantity, pricepaid, catvalue
        QTest::newRow("quantity") << u"(2147483647, null, null), (1, null, null)"_s;
        QTest::newRow("product") << u"(2147483647, 9000000000000000, null)"_s;
        QTest::newRow("sum") << u"(1, null, 9000000000000000000), (1, null, 9000000000000000000)"_s;
        QTest::newRow("difference") << u"(1, -9000000000000000000, 9000000000000000000)"_s;
    }
    void sumsTooLarge()
    {
        QFETCH(QString, values);
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
};

QTEST_MAIN(CannedReportsTest)
#include "CannedReports.moc"
