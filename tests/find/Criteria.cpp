// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "find/FindCriteria.h"
#include "runtime/RegionalSettings.h"
#include "store/CoinFile.h"
#include "support/Cases.h"
#include "support/TestCollection.h"

using namespace obelmark;

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

    void typedValues_data() { cases::add(); }
    void typedValues()
    {
        const auto [name, column, number, typed, expected, locale] = cases::row<6>();
        const QMap<QString, CatalogueField> fields{{u"descr"_s, descr},
                                                   {u"price"_s, price},
                                                   {u"year"_s, year},
                                                   {u"issued"_s, issued},
                                                   {u"timed"_s, timed},
                                                   {u"favourite"_s, favourite},
                                                   {u"sellerNotes"_s, sellerNotes}};
        const CatalogueField searched = fields[column];
        const int op = number.toInt();
        const QString text = typed == u"LONG" ? QString(32'767, u'[') : typed; // as long as can be typed
        const RegionalSettings regional{QLocale(locale.isEmpty() ? u"en_US"_s : locale)};
        QString found;
        if (const auto refusal = refuseValue(searched, {op, text}, regional)) {
            found = refusal->title;
        } else {
            const auto coins = m_database->openDynaset(u"select * from Coin order by misc1"_s);
            const QString criteria = findCriteria(searched, {op, text}, regional);
            for (coins->findFirst(criteria); !coins->noMatch(); coins->findNext(criteria))
                found += coins->value(u"misc1").toText();
        }
        QCOMPARE(found, expected);
    }

private:
    TestCollection m_collection;
    std::unique_ptr<Database> m_database;
};

QTEST_GUILESS_MAIN(CriteriaTest)
#include "Criteria.moc"
