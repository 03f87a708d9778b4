#include "find/FindCriteria.h"
#include "runtime/RegionalSettings.h"
#include "store/CoinFile.h"
#include "support/TestCollection.h"
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

CatalogueField field(const QString &name, FieldKind kind, const QString &table = {}, const QString &link = {})
{
    return {
        .usewith = {}, .desc = {}, .fieldname = name, .datatype = kind, .FileName = table, .linkfield = link};
}

const CatalogueField descr = field(u"descr"_s, FieldKind::Text);
const CatalogueField price = field(u"pricepaid"_s, FieldKind::Number);
const CatalogueField year = field(u"Year"_s, FieldKind::Number);
const CatalogueField issued = field(u"issuedate"_s, FieldKind::Date);
const CatalogueField timed = field(u"issuedate"_s, FieldKind::Time);
const CatalogueField sold = field(u"sold"_s, FieldKind::YesNo);
const CatalogueField sellerNotes = field(u"bounotes"_s, FieldKind::Text, u"boughtfrom"_s, u"bouid;bouid"_s);
const CatalogueField favourite = field(u"BouFav"_s, FieldKind::YesNo, u"boughtfrom"_s, u"bouid"_s);

} // namespace
Q_DECLARE_METATYPE(obelmark::CatalogueField)

class CriteriaTest : public QObject
{
    Q_OBJECT
private slots:
    void everyOperator()
    {
        const RegionalSettings regional{QLocale(u"en_US"_s)};
        const auto criteria = [&](const CatalogueField &searched, const QString &text) {
            QStringList lines;
            for (const FindOperator &op : findOperators(findKind(searched)))
                lines << u"%1: %2"_s.arg(QString::fromUtf16(op.caption),
                                         findCriteria(searched, {int(lines.size()), text}, regional));
            return lines.join(u", ");
        };
        QCOMPARE(criteria(descr, u" V"_s), u"Contains: descr like \"* V*\", Begins With: descr like \" V*\", "
                                           "Ends With: descr like \"* V\", Equals: descr like \" V\""_s);
        QCOMPARE(criteria(year, u"5"_s), u"=: Year = 5, not =: Year <> 5, <: Year < 5, >: Year > 5, "
                                         "<=: Year <= 5, >=: Year >= 5"_s);
        QVERIFY(criteria(issued, u"5/3/1852"_s).endsWith(u">=: issuedate >= #1852-05-03#"_s));
        QCOMPARE(criteria(sold, {}), u"True: sold = true, False: sold is not true"_s);
        QCOMPARE(findCriteria(sellerNotes, {0, {}, 9}, regional), u"bouid = 9"_s);
        const QString query = u"select bouid as id, bounotes as descr from boughtfrom"_s;
        QCOMPARE(entriesQuery(sellerNotes), query + u" order by bounotes"_s);
    }

    void initTestCase()
    {
        m_collection.exec(
            u"insert into boughtfrom (bouid, bouDesc, bounotes, BouFav) values (7, 'Zoe', 'z', 1), (8, '', "
            u"'a', null);"
            "insert into Coin (misc1, descr, pricepaid, Year, issuedate, bouid) values"
            "('A', '1 Liberty''s head 9', 12345000, 1852, '1852-05-03', 7),"
            "('B', 'Nine[ty *', 25055, null, '1852-05-06', 8), ('C', '5 \" of 5', -30000, null, null, null),"
            "('D', '100%_', null, -44, null, null), ('E', 'écu', null, null, null, null)"_s);
        m_database = openCoinDatabase(m_collection.databasePath());
    }

    void typedValues_data()
    {
        QTest::addColumn<CatalogueField>("searched");
        QTest::addColumn<int>("op");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("found"); // which of the five coins, or why the value is refused
        QTest::addColumn<QString>("locale");
        const auto row = [](const char *name, const CatalogueField &searched, int op, const QString &text,
                            const QString &found, const QString &locale = u"en_US"_s) {
            QTest::newRow(name) << searched << op << text << found << locale;
        };
        row("quotes", descr, 0, u"\"x\" or 'y' is not null or descr like \"*"_s, {});
        row("a quote", descr, 0, u"\" of"_s, u"C"_s);
        row("pattern", descr, 1, u"? l[iu]bert*#"_s, u"A"_s);
        row("bracket left open", descr, 0, u"[T"_s, u"B"_s);
        row("SQL of other systems", descr, 0, u"100%_"_s, u"D"_s);
        row("null character", descr, 0, u"LIBERTY\0'S"_s, u"A"_s);
        row("case, accents", descr, 3, u"ÉCU"_s, u"E"_s);
        row("as long as can be typed", descr, 0, QString(32'767, u'['), {});
        row("currency", price, 0, u"$1,234.50"_s, u"A"_s);
        row("decimal comma", price, 0, u"1.234,5 €"_s, u"A"_s, u"de_DE"_s);
        row("finer than money", price, 2, u"2.50551"_s, u"BC"_s);
        row("negative", price, 0, u"(3)"_s, u"C"_s);
        row("huge", year, 2, u"1e300"_s, u"AD"_s);
        row("day first", issued, 0, u"3.5.1852"_s, u"A"_s, u"de_DE"_s);
        row("time of day", issued, 3, u"3 May 1852 10:30"_s, u"B"_s);
        row("time alone", timed, 2, u"10:30"_s, u"AB"_s);
        row("favourite", favourite, 0, {}, u"A"_s);
        row("no favourite", favourite, 1, {}, u"B"_s);
        row("SQL for a number", year, 0, u"1 or 1"_s, u"Search Value Not Numeric"_s);
        row("no entry", sellerNotes, 0, {}, u"No Value Selected"_s);
    }
    void typedValues()
    {
        QFETCH(CatalogueField, searched);
        QFETCH(int, op);
        QFETCH(QString, text);
        QFETCH(QString, locale);
        const RegionalSettings regional{QLocale(locale)};
        QString found;
        if (const auto refusal = refuseValue(searched, {op, text}, regional)) {
            found = refusal->title;
        } else {
            const auto coins = m_database->openDynaset(u"select * from Coin order by misc1"_s);
            const QString criteria = findCriteria(searched, {op, text}, regional);
            for (coins->findFirst(criteria); !coins->noMatch(); coins->findNext(criteria))
                found += coins->value(u"misc1").toText();
        }
        QTEST(found, "found");
    }

private:
    TestCollection m_collection;
    std::unique_ptr<Database> m_database;
};

QTEST_GUILESS_MAIN(CriteriaTest)
#include "Criteria.moc"
