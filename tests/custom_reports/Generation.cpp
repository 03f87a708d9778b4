// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Custom reports from their definitions: the query, the rows it selects, and what the targets receive.
#include "common/SharedState.h"
#include "custom_reports/NoPreview.h"
#include "custom_reports/ReportDefinition.h"
#include "custom_reports/ReportGenerator.h"
#include "custom_reports/ReportQuery.h"
#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"
#include "engine/language/EngineError.h"
#include "runtime/Formats.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <QtTest>

using namespace obelmark;

namespace {

const QString textFilter = u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s;
const QString htmlFilter = u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s;

enum Field { Descr = 1, Country, CountryCode, Bought, Price, Sold, Struck, Mint, Year, CoinKey, Quantity };

QList<CatalogueField> catalogueRows()
{
    QList<CatalogueField> fields;
    for (const QString &line : cases::linesOf(u"Generation"_s, u"catalogue"_s)) {
        const QStringList cells = cases::cellsOf(line);
        CatalogueField field;
        field.specid = cells[0].toInt();
        field.usewith = u"coin"_s;
        field.desc = cells[1];
        field.fieldname = cells[2];
        field.datatype = FieldKind(cells[3].toInt());
        field.IsCurrency = field.specid == Price;
        field.FileName = cells.value(4);
        field.linkfield = cells.value(5);
        fields << field;
    }
    return fields;
}

struct Report : ReportDefinition
{
    explicit Report(const QList<int> &chosen = {}) : ReportDefinition(catalogueRows(), u"coin"_s)
    {
        fields = chosen;
    }
    FieldOptions &of(int specid) { return options[size_t(specid)]; }
    void sortBy(int first, int second = 0)
    {
        const auto position = [this](int specid) {
            const auto &all = rows.all();
            return int(
                std::find_if(all.begin(), all.end(), [&](const auto &row) { return row.specid == specid; }) -
                all.begin());
        };
        sort1 = position(first);
        sort2 = second ? position(second) : -1;
    }
};

Date at(const QString &iso)
{
    return fromIsoText(iso).value();
}

/// Sets what a criterion of the table says of its field: "LessThan 5; SelTrue".
void set(Report &report, const QStringList &criterion)
{
    FieldOptions &options = report.of(criterion[0].toInt());
    for (const QString &option : criterion[1].split(u"; "_s)) {
        const QString name = option.section(u' ', 0, 0), value = option.section(u' ', 1);
        const auto moment = fromIsoText(value).value_or(Date{});
        name == u"StartsWith"    ? void(options.StartsWith = value)
        : name == u"LessThan"    ? void(options.LessThan = value)
        : name == u"GreaterThan" ? void(options.GreaterThan = value)
        : name == u"StartValue"  ? void(options.StartValue = moment)
        : name == u"EndValue"    ? void(options.EndValue = moment)
        : name == u"SelTrue"     ? void(options.SelTrue = true)
                                 : void(options.SelFalse = true);
    }
}

/// A collection of coins with every kind of value, and nulls.
QString coins()
{
    QString sql = u"alter table Coin add column struck date; insert into country (couid, coudesc) values "
                  "(1001, 'x'); update country set coudesc = 'Frisia' where couid = 2;"
                  "update country set coudesc = 'france' where couid = 3;"
                  "update country set coudesc = 'Spain' where couid = 1;"
                  "update country set coudesc = 'z' || couid where couid > 3;"_s;
    const QStringList descriptions{u"'Abel'"_s, u"'aBBa'"_s, u"'O''Neil'"_s, u"'Oslo'"_s, u"''"_s, u"null"_s};
    const QStringList prices{u"null"_s,  u"-50000"_s, u"-49999"_s,   u"0"_s,       u"25000"_s,
                             u"25001"_s, u"30000"_s,  u"10004999"_s, u"10005000"_s};
    const QStringList dates{u"null"_s,         u"'2005-01-04'"_s, u"'2005-01-05'"_s, u"'2005-01-06'"_s,
                            u"'1899-12-05'"_s, u"'0852-03-01'"_s, u"'1899-12-06'"_s};
    const QStringList times{u"null"_s, u"'1899-12-30T10:29:59'"_s, u"'1899-12-30T10:30:00'"_s,
                            u"'1899-12-30T18:15:42'"_s, u"'1899-12-30T18:15:43'"_s};
    for (int i = 0; i < 1260; ++i) {
        sql +=
            u"insert into Coin (descr, pricepaid, PurchaseDate, sold, struck, couid, Year, quantity) values "
            "(%1, %2, %3, %4, %5, %6, %7, %8);"_s.arg(descriptions[i % 6], prices[i % 9], dates[i % 7],
                                                      QStringList{u"0"_s, u"1"_s, u"null"_s}[i / 3 % 3],
                                                      times[i % 5],
                                                      QStringList{u"null"_s, u"1"_s, u"2"_s, u"3"_s}[i % 4],
                                                      QString::number(1897 + i % 5), QString::number(i + 1));
    }
    return u"begin;"_s + sql + u"commit"_s;
}

class Fixture
{
public:
    explicit Fixture(const QString &sql, const QLocale &locale = QLocale(u"en_US"_s))
        : shared(desktop, RegionalSettings(locale))
    {
        collection.exec(sql);
        shared.DatabasePath = collection.databasePath();
    }

    /// What the report writes into a file of that kind.
    QString written(Report report, int kind = 2)
    {
        if (!shared.CoinDatabase)
            shared.CoinDatabase = Database::open(shared.DatabasePath, Database::Access::Exclusive, {});
        report.reportTo = kind;
        const QString path = collection.folder() + u"report"_s;
        QFile::remove(path);
        desktop.answerSaveFile(kind == 2 ? u"coin.txt"_s : u"coin.htm"_s, kind == 2 ? textFilter : htmlFilter,
                               path);
        generateReport(report, shared, preview);
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"no file"_s;
    }

    TestCollection collection;
    ScriptedDesktop desktop;
    SharedState shared;
    NoPreview preview;
};

} // namespace

class GenerationTest : public QObject
{
    Q_OBJECT
private slots:
    void query()
    {
        const auto sqlOf = [](const Report &report) {
            return reportQuery(report, ColumnNames::Plain, RegionalSettings(QLocale(u"en_US"_s)));
        };
        Report example({Descr, Country, Bought});
        example.of(Bought).HideField = true;
        example.of(Bought).StartValue = at(u"2005-01-05"_s);
        example.sortBy(Descr);
        QCOMPARE(sqlOf(example), u"Select descr, coudesc from (coin left join country on coin.couid = "
                                 "country.couid) where  PurchaseDate >= #1/5/2005# order by descr"_s);
        Report joined(
            {Country, CountryCode, Year}); // two of one table, one of the coins', a sort that no field brings
        joined.sortBy(Mint, Country);
        QCOMPARE(
            sqlOf(joined),
            u"Select coudesc, couid, Year from ((coin left join country on coin.couid = country.couid) left "
            "join mint on coin.minid = mint.minid) order by mindesc, coudesc"_s);
        Report converted({Descr, Price, Sold, Struck, Bought});
        converted.of(Descr).StartsWith = u"O'N"_s;
        converted.of(Price).LessThan = u"1,234.50"_s;
        converted.of(Price).GreaterThan = u"-.5"_s;
        converted.of(Sold).SelFalse = true;
        converted.of(Struck).StartValue = at(u"1899-12-30T10:30:00"_s);
        converted.of(Struck).EndValue = at(u"2005-01-05T18:15:42"_s);
        converted.of(Bought).EndValue = at(u"0900-01-05"_s);
        QCOMPARE(
            sqlOf(converted),
            u"Select descr, pricepaid, sold, struck, PurchaseDate from coin where  descr like 'O''N*' and "
            "pricepaid < 1234.5 and pricepaid > -0.5 and sold is not true and struck >= #10:30:00 AM# and "
            "struck <= #1/5/2005 6:15:42 PM# and PurchaseDate <= #1/5/0900#"_s);
    }

    // Each criterion alone and with each other one, against rows that SQLite selects by itself.
    void criteriaSelectTheirRows()
    {
        Fixture f(coins());
        const auto rowsOf = [&](const QString &where) {
            return f.collection.query(u"select quantity from Coin where %1 order by quantity"_s.arg(where));
        };
        struct Case
        {
            Report report{{Quantity}};
            QString name;
            QStringList rows;
        };
        std::vector<Case> all;
        const QStringList lines = cases::linesOf(u"Generation"_s, u"criteria"_s);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            for (qsizetype j = i; j < lines.size(); ++j) {
                const QStringList a = cases::cellsOf(lines[i]), b = cases::cellsOf(lines[j]);
                // A field has room for one beginning, one bound of a kind, one answer.
                Case c;
                set(c.report, a);
                set(c.report, b);
                Report other({Quantity});
                set(other, b);
                set(other, a);
                if (i != j && c.report.options != other.options)
                    continue;
                for (const int field : {Descr, Country, Price, Year, Bought, Sold, Struck}) {
                    c.report.of(field).HideField = true;
                    c.report.fields << field;
                }
                c.report.sortBy(Quantity);
                c.name = lines[i] + u" & "_s + lines[j];
                c.rows = rowsOf(u"(%1) and (%2)"_s.arg(a[2], b[2]));
                QVERIFY2(i != j || (!c.rows.isEmpty() && c.rows.size() < 1260), qPrintable(c.name));
                if (!c.rows.isEmpty())
                    all.push_back(c);
            }
        }
        QVERIFY(all.size() > 70);
        for (const Case &c : all)
            QVERIFY2(f.written(c.report) == c.rows.join(u"\r\n"_s) + u"\r\n"_s, qPrintable(c.name));
        QCOMPARE(f.desktop.problems(), QStringList());
    }

    void targets()
    {
        Fixture f(
            u"alter table Coin add column struck date; delete from country; insert into country (couid, "
            u"coudesc) "
            "values (1, 'Österreich');"
            "insert into Coin (descr, couid, pricepaid, PurchaseDate, sold, struck, quantity, Year) values "
            "('a|b;c', 1, 12345678, '2005-01-05', 1, '1899-12-30T18:15:42', 2, 1900),"
            "('<b>', null, null, null, null, null, null, null), ('z', 9, 1, '1852-05-03', 0, null, 3, -1)"_s);
        Report report({Descr, Country, Bought, Price, Sold, Struck, Quantity, Year});
        report.title = u"All & Sundry"_s;
        report.sortBy(Descr);
        report.of(Price).ShowTotal = report.of(Quantity).ShowTotal = true;
        report.of(Year).HideField = true;
        QCOMPARE(f.written(report),
                 u"<b>\t\t\t\tNo\t\t\r\na|b;c\tÖsterreich\t1/5/2005\t$1,234.57\tYes\t06:15 PM\t2\r\n"
                 "z\t\t5/3/1852\t$0.00\tNo\t\t3\r\n\t\t\t$1,234.57\t\t\t5\r\n"_s);
        report.fields = {Descr, Quantity, Sold, Year};
        QCOMPARE(
            f.written(report, 3),
            u"<html>\r\n<head><title>All & Sundry</title></head>\r\n<body>\r\n<table border=1>\r\n"
            "<tr><th colspan = 4>All & "
            "Sundry</th></tr>\r\n<tr>\r\n<th>Description</th>\r\n<th>Quantity</th>\r\n"
            "<th>Sold</th>\r\n</tr>\r\n<tr><td><b></td><td align=right></td><td>No</td></tr>\r\n"
            "<tr><td>a|b;c</td><td align=right>2</td><td>Yes</td></tr>\r\n"
            "<tr><td>z</td><td align=right>3</td><td>No</td></tr>\r\n"
            "<tr><TD>&nbsp;</TD><td align=right>5</td><TD>&nbsp;</TD></tr>\r\n</table>\r\n"
            "<H6>List Produced by <A HREF=\"https://obelmark.example/\">Obelmark</A></H6>\r\n</body>\r\n</html>\r\n"_s);
        QCOMPARE(f.preview.shown, 0);
        report.reportTo = 1;
        generateReport(report, f.shared, f.preview);
        QCOMPARE(f.preview.shown, 1);
        QCOMPARE(f.preview.document().pageText(0).section(u'\n', 1, 1), u"Description\tQuantity\tSold"_s);
        QVERIFY(f.shared.RepeatHeading && !f.desktop.hourglass());
        QCOMPARE(f.desktop.problems(), QStringList());
    }

    void germanRegion()
    {
        Fixture f(u"insert into Coin (descr, pricepaid, PurchaseDate) values ('x', 12345600, '2005-01-05'), "
                  "('y', 15000, '2005-01-05'), ('w', 15001, null)"_s,
                  QLocale(u"de_DE"_s));
        Report report({Descr, Price, Bought});
        report.of(Price).GreaterThan = u"1,5"_s;
        report.of(Price).LessThan = u"1.234,57"_s;
        report.of(Price).CurrencyField = false;
        report.of(Price).ShowTotal = true;
        report.of(Price).ColWidth = 0.75F;
        report.width = 1;
        report.sortBy(Descr);
        QCOMPARE(f.written(report), u"w\t1,5001\t\r\nx\t1234,56\t05.01.2005\r\n\t1236,0601\t\r\n"_s);
        // The preview's own language: the decimal point whatever the region.
        QCOMPARE(reportTable(report).TableFormat, u"561.6|>421.2|561.6;"_s);
    }

    void widths()
    {
        Report report({Price, Descr});
        report.of(Price).ColWidth = 1.5F;
        report.of(Descr).ColWidth = 0;
        QCOMPARE(reportTable(report).TableFormat, u">2160|0;"_s);
        report.width = 1;
        report.of(Price).ColWidth = 2;
        report.of(Descr).ColWidth = 3e38F;
        QCOMPARE(reportTable(report).TableFormat, u">1123.2|3.402823E+38;"_s);
    }

    // Sums that no double holds, and one that money does not hold.
    void totals()
    {
        Fixture f(
            u"insert into Coin (descr, pricepaid) values ('a', 9007199254740993), ('b', 1), ('c', 49)"_s);
        Report report({Descr, Price});
        report.of(Price).ShowTotal = true;
        QVERIFY(f.written(report).endsWith(u"\t$900,719,925,474.10\r\n"_s));
        report.of(Price).CurrencyField = false;
        QVERIFY(f.written(report).endsWith(u"\t900719925474.1043\r\n"_s));

        Fixture large(
            u"insert into Coin (descr, pricepaid) values ('a', 9000000000000000000), ('b', 9000000000000000000)"_s);
        report.of(Price).CurrencyField = true;
        QVERIFY(large.written(report).endsWith(u"\t$1,800,000,000,000,000.00\r\n"_s));
    }

    // The key of the countries stands in both tables.
    void sharedColumnNames()
    {
        Fixture f(
            u"delete from country; insert into country (couid, coudesc) values (1, 'x'); insert into Coin "
            "(descr, couid) values ('a', 1), ('b', 5)"_s);
        Report report({Descr, CoinKey, CountryCode});
        report.sortBy(CoinKey);
        QCOMPARE(f.written(report), u"a\t1\t1\r\nb\t5\t\r\n"_s);
        report.of(CoinKey).GreaterThan = u"1"_s;
        QCOMPARE(f.written(report), u"b\t5\t\r\n"_s);
    }

    void nothingToReport()
    {
        Fixture f({});
        const QString noFields = u"You have not selected any fields to include in the report"_s;
        const QString noCoins =
            u"No records have been entered that may be included in the specified report"_s;
        Report report({Descr});
        report.of(Descr).HideField = true;
        for (const QList<int> &fields : {QList<int>(), QList<int>{Descr}}) {
            report.fields = fields;
            f.desktop.expectMessage(noFields);
            generateReport(report, f.shared, f.preview);
        }
        QVERIFY_THROWS_EXCEPTION(NumberedError,
                                 generateReport(Report({Descr}), f.shared, f.preview)); // no database
        QVERIFY(!f.desktop.hourglass());

        f.desktop.reset();
        f.shared.CoinDatabase = Database::open(f.shared.DatabasePath, Database::Access::Exclusive, {});
        f.desktop.expectMessage(noCoins);
        report = Report({Descr});
        generateReport(report, f.shared, f.preview);
        QCOMPARE(f.preview.shown, 0);
        f.desktop.reset();
        QCOMPARE(f.written(Report({Descr}), 2), QString());
        QVERIFY(f.written(Report({Descr}), 3).endsWith(u"<th>Description</th>\r\n</tr>\r\n"));
        QCOMPARE(f.desktop.surprises().size(), 2); // the message, each time
    }

    void whatGoesWrong()
    {
        Fixture f(u"insert into Coin (descr, Year) values ('a', 1)"_s);
        const QString path = f.collection.folder() + u"kept.txt"_s;
        QFile kept(path);
        QVERIFY(kept.open(QIODevice::WriteOnly) && kept.write("kept") == 4);
        kept.close();
        f.shared.CoinDatabase = Database::open(f.shared.DatabasePath, Database::Access::Exclusive, {});
        Report report({Descr, Struck});
        report.reportTo = 2;
        const auto choose = [&](const std::optional<QString> &chosen,
                                Desktop::Answer replace = Desktop::Answer::Yes) {
            f.desktop.answerSaveFile(u"coin.txt"_s, textFilter, chosen);
            if (chosen == path)
                f.desktop.answerYesNo(
                    u"The file '%1' already exists.  Do you wish to replace it?"_s.arg(path),
                    u"File Exists"_s, replace);
        };
        // A query that the engine rejects: a column that is not there, a bound that is no number.
        choose(path);
        f.desktop.expectMessage(u"3061  Too few parameters. Expected 1."_s);
        generateReport(report, f.shared, f.preview);
        report.fields = {Descr, Year};
        report.of(Year).LessThan = u"1 or 1=1"_s;
        choose(path);
        f.desktop.expectMessage(u"3075  Syntax error in query expression '1 or 1=1'."_s);
        generateReport(report, f.shared, f.preview);
        report.of(Year).LessThan.clear();
        choose({});
        generateReport(report, f.shared, f.preview);
        choose(path, Desktop::Answer::No);
        generateReport(report, f.shared, f.preview);
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), QByteArray("kept"));
        QCOMPARE(f.desktop.problems(), QStringList());

        f.desktop.reset();
        choose(f.collection.folder() + u"missing/x.txt"_s);
        generateReport(report, f.shared, f.preview);
        QCOMPARE(f.desktop.surprises().size(), 1);
        QVERIFY(f.desktop.surprises().first().contains(u"missing/x.txt"));
        QVERIFY(!f.desktop.hourglass());
    }
};

QTEST_MAIN(GenerationTest)
#include "Generation.moc"
