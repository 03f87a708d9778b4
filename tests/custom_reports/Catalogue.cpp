// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/Catalogue.h"
#include "custom_reports/ReportFile.h"
#include "custom_reports/ReportQuery.h"
#include "engine/rows/Database.h"
#include "runtime/RegionalSettings.h"
#include "support/Cases.h"
#include <SQLiteCpp/SQLiteCpp.h>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// Copies of the catalogue and the database that are delivered.
class CatalogueTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        for (const QString &file : {u"rptspec.mdb"_s, u"coin.mdb"_s})
            QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/") + file, path(file)));
    }

    void everyFieldIsAColumn()
    {
        SQLite::Database rows(path(u"rptspec.mdb"_s).toStdString(), SQLite::OPEN_READWRITE);
        rows.exec("attach '" + path(u"coin.mdb"_s).toStdString() + "' as coins");
        SQLite::Statement faulty(
            rows,
            "select group_concat(fieldname) from RptSpec left join pragma_table_info(ifnull(FileName, "
            "'Coin')) on name = "
            "fieldname where type is null or datatype || IsCurrency is not case lower(type) when 'money' "
            "then '21' when 'boolean' then '40' when 'date' then '30' when 'integer' then '20' when "
            "'smallint' then '20' else '10' end or ismemo is not (type like 'text' and FileName is not "
            "null)");
        QVERIFY(faulty.executeStep());
        QCOMPARE(QString::fromStdString(faulty.getColumn(0)), QString());

        // All of them in one report: no name may stand in two of the tables.
        QMap<QString, QString> joins;
        QStringList columns;
        const auto fields = read().fieldsOf(u"coin"_s);
        for (const CatalogueField &field : fields) {
            columns << field.fieldname;
            joins[field.FileName] =
                u" left join %1 on coin.%2 = %1.%3"_s.arg(field.FileName, field.mainKey(), field.lookupKey());
        }
        joins.remove(QString());
        QCOMPARE(joins.size(), 7);
        const auto database = Database::open(path(u"coin.mdb"_s), Database::Access::Shared, {});
        QVERIFY(database->openSnapshot(u"select %1 from coin%2"_s.arg(
            columns.join(u", "), QStringList(joins.values()).join(QString()))));
    }

    void reportsOfTheSampleCollection()
    {
        const RegionalSettings regional(QLocale(u"de_DE"_s)); // whole numbers are the same everywhere
        const Catalogue catalogue = read();
        const ReportDefinition empty(catalogue.fieldsOf(u"coin"_s), u"coin"_s);
        const auto database =
            Database::open(QStringLiteral(OBELMARK_DATA_DIR "/sample.mdb"), Database::Access::Shared, {});
        const QDir folder(QStringLiteral(OBELMARK_DATA_DIR "/sample"));
        const QStringList files = folder.entryList({u"*.rpt"_s});
        QCOMPARE(files.size(), 2);
        for (const QString &file : files) {
            const auto [isValid, report] =
                readReport(loadReportFile(folder.filePath(file)), empty, catalogue, regional);
            QVERIFY2(isValid && report->fields.size() == 8, qPrintable(file));
            const auto rows = database->openSnapshot(reportQuery(*report, ColumnNames::Plain, regional));
            QVERIFY2(rows->recordCount() > 10 && rows->recordCount() < 250, qPrintable(file));
        }
    }

    void fieldsOfOneTable()
    {
        dropChecks();
        exec(
            "delete from RptSpec; insert into RptSpec (specid, usewith, Desc, fieldname, datatype, defwidth, "
            "FileName, linkfield) values (7, 'coin', 'zinc', 'a', 5, null, null, 'one;two'),"
            "(2, 'COIN', 'Émail', 'b', 1, 2.5, 'x', 'key'), (1, 'coin', 'fine', 'c', 2, 0.25, 'Coin', ''),"
            "(3, 'stamps, coins', 'Aloy', 'd', 1, 1, '', null), (4, 'stamp', 'zz', 'e', 9, 1, '', null)");
        QVERIFY(QFile::rename(path(u"rptspec.mdb"_s), path(u"RPTSPEC.Mdb"_s)));
        const Catalogue catalogue = read();
        const auto captions = [](const QList<CatalogueField> &fields) {
            QString text;
            for (const CatalogueField &field : fields)
                text += field.desc + u' ';
            return text;
        };
        const auto fields = catalogue.fieldsOf(u"coin"_s);
        QCOMPARE(captions(fields), u"Émail fine zinc "_s);
        QCOMPARE(captions(catalogue.fieldsContaining(u"Coin"_s)), u"Aloy Émail fine zinc "_s);
        QCOMPARE(fields[2].defwidth, 1);
        QCOMPARE(fields[2].mainKey() + fields[2].lookupKey(), u"onetwo"_s);
        QCOMPARE(fields[0].mainKey() + fields[0].lookupKey(), u"keykey"_s);
        QVERIFY(fields[1].FileName.isEmpty() && fields[1].defwidth == 0.25F);
        QVERIFY(catalogue.knows(u"Stamp"_s) && !catalogue.knows(u"stamps"_s));
    }

    void unusable_data() { cases::add(); }
    void unusable()
    {
        const auto [statements, reason] = cases::row<2>();
        const QByteArray sql = statements.toUtf8();
        dropChecks();
        if (!sql.isEmpty())
            exec(sql);
        QFile file(path(u"rptspec.mdb"_s));
        QVERIFY(!sql.isEmpty() || (file.open(QIODevice::WriteOnly) && file.write(QByteArray(4096, 'x')) > 0));
        file.close();
        const QString message = errorOf();
        QVERIFY2(message.contains(reason) && message.contains(file.fileName()), qPrintable(message));
        QVERIFY(file.remove());
        QVERIFY(errorOf().contains(u"Could not find file '%1'."_s.arg(file.fileName())));
    }

private:
    QString path(const QString &file) const { return m_folder->filePath(file); }
    Catalogue read() const { return Catalogue::read(m_folder->path() + u'/'); }
    void exec(const QByteArray &sql) const
    {
        SQLite::Database(path(u"rptspec.mdb"_s).toStdString(), SQLite::OPEN_READWRITE).exec(sql.constData());
    }
    /// As a file from elsewhere may be.
    void dropChecks() const
    {
        exec("create table free as select * from RptSpec;"
             "drop table RptSpec; alter table free rename to RptSpec");
    }
    QString errorOf() const
    {
        try {
            read().fieldsOf(u"coin"_s);
        } catch (const CatalogueError &error) {
            return error.message();
        }
        return {};
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(CatalogueTest)
#include "Catalogue.moc"
