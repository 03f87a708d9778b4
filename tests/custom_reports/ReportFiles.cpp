// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Report files: their bytes, what is accepted of what others have written, and what stays after a fault.
#include "common/SharedState.h"
#include "custom_reports/ReportFile.h"
#include "runtime/NumberedError.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"
#include <SQLiteCpp/SQLiteCpp.h>
#include <random>
#include <sys/stat.h>

using namespace obelmark;

namespace {

const RegionalSettings us(QLocale(u"en_US"_s));
const RegionalSettings german(QLocale(u"de_DE"_s));

/// The ids 1 to 4, in the lists as "Alloy", "Bought", "Code", "Dear".
Catalogue smallCatalogue()
{
    const QTemporaryDir folder;
    SQLite::Database(folder.filePath(u"rptspec.mdb"_s).toStdString(),
                     SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("create table RptSpec (specid integer primary key, usewith varchar(50), Desc varchar(50), "
              "fieldname varchar(50), datatype smallint, defwidth single, IsCurrency boolean, "
              "FileName varchar(50), linkfield varchar(50), ismemo boolean);"
              "insert into RptSpec values (1, 'coin', 'Dear', 'pricepaid', 2, 1, 1, '', '', 0),"
              "(2, 'coin', 'Alloy', 'Metal', 1, null, 0, '', '', 0),"
              "(3, 'coin', 'Bought', 'PurchaseDate', 3, 1, 0, '', '', 0),"
              "(4, 'coin', 'Code', 'sold', 4, 1, 0, '', '', 0),"
              "(9, 'stamp', 'Gum', 'gum', 1, 2.5, 0, '', '', 0)");
    return Catalogue::read(folder.path() + u'/');
}

const QString defaultLines =
    u"coin|Obelmark Report|1|0|1|0|0|-1 |-1 |0||0;0;0;0|0;0;0;0|;;;|0;0;0;0|0;0;0;0|;;;|;;;|1;1;1;1|0;0;0;0|0;0;0;0|1;0;0;0"_s;
/// Fields 3 and 1, sorted by the second entry of the list, field 1 is 2 inches wide, 3 starts on 1 January
/// 2005.
const QString exampleLines =
    u"coin|Obelmark Report|1|0|1|0|0| 1 |-1 |2|3;1|0;0;0;0|0;0;0;0|;;;|0;0;38353;0|0;0;0;0|;;;|;;;|2;1;1;1|0;0;0;0|0;0;0;0|1;0;0;0"_s;

QByteArray fileOf(const QStringList &lines)
{
    return (lines.join(u"\r\n"_s) + u"\r\n"_s).toUtf8();
}

class Chance
{
public:
    explicit Chance(unsigned seed) : m_generator(seed) {}
    int below(int limit) { return int(m_generator() % unsigned(limit)); }
    int from(int least, int most) { return least + below(most - least + 1); }
    bool coin() { return below(2) == 0; }

private:
    std::mt19937 m_generator;
};

/// A file of lines that the table of cases allows.
QByteArray anyFile(Chance &chance)
{
    QStringList lines;
    for (const QString &pool : cases::linesOf(u"ReportFiles"_s, u"lines"_s)) {
        const QStringList texts = cases::cellsOf(pool);
        const bool hasEntries = lines.size() >= 11;
        QStringList entries;
        for (int i = hasEntries ? 4 : 1; i > 0; --i)
            entries << texts[chance.below(int(texts.size()))];
        lines << entries.join(u';');
    }
    lines[9] = QString::number(lines[10].isEmpty() ? 0 : lines[10].count(u';') + 1); // fields in line 11
    lines.last() = u"1;0;0;0"_s;                                                     // is not read
    return fileOf(lines);
}

} // namespace

class ReportFilesTest : public QObject
{
    Q_OBJECT
private slots:
    void bytesOfTheExample()
    {
        ReportDefinition report(m_catalogue, u"coin"_s);
        QCOMPARE(reportFileText(report, us), fileOf(defaultLines.split(u'|')));
        report.fields = {3, 1};
        report.sort1 = 1;
        report.options[1].ColWidth = 2;
        report.options[3].StartValue = Date::from(QDate(2005, 1, 1));
        QCOMPARE(reportFileText(report, german), fileOf(exampleLines.split(u'|')));
        report.title = u"two\nlines"_s;
        QCOMPARE(reportFileText(report, us).split('\n').size(), 23);
    }

    void everyReportSurvives()
    {
        const ReportDefinition current(m_catalogue, u"coin"_s);
        Chance chance(1);
        for (int i = 0; i < 1000; ++i) {
            const RegionalSettings &regional = i % 2 ? german : us;
            const QByteArray file = anyFile(chance);
            const ReadReport read = readReport(file, current, m_catalogue, regional);
            QVERIFY(read.isValid);
            QCOMPARE(reportFileText(*read.report, regional), file);
        }
    }

    // One line of the example is another one: does it read, and as what is it written again? What follows a
    // fault is as the designer begins with it.
    void otherLine_data() { cases::add(); }
    void otherLine()
    {
        auto [name, number, kind, text, kept] = cases::row<5>();
        const int line = number.toInt();
        const bool valid = kind == u"valid";
        const QStringList defaults = defaultLines.split(u'|');
        if (!valid && kept.isEmpty())
            kept = defaults[line - 1];
        QStringList lines = exampleLines.split(u'|');
        lines[line - 1] = text;
        const ReadReport read =
            readReport(fileOf(lines), ReportDefinition(m_catalogue, u"coin"_s), m_catalogue, us);
        QCOMPARE(read.isValid, valid);
        QStringList expected = valid ? lines : lines.first(line) + defaults.sliced(line);
        // How many there are says line 11.
        expected[9] = QString::number(line == 11            ? kept.count(u';') + !kept.isEmpty()
                                      : !valid && line < 11 ? 0
                                                            : 2);
        if (line != 10)
            expected[line - 1] = kept;
        QCOMPARE(QString::fromUtf8(reportFileText(*read.report, us)).split(u"\r\n"_s),
                 expected + QStringList{QString()});
    }

    void firstLine()
    {
        ReportDefinition current(m_catalogue, u"coin"_s);
        current.width = 1;
        const auto read = [&](const QByteArray &bytes) {
            return readReport(bytes, current, m_catalogue, us);
        };
        for (const char *refused :
             {"", "\r\n", "button\r\nTitle\r\n", "coins of the whole wo", "SQLite format 3"})
            QVERIFY(!read(refused).isValid && !read(refused).report);
        const ReadReport other = read("Stamp\nTitle\n2");
        QVERIFY(!other.isValid);
        QCOMPARE(other.report->SpecUseWith, u"Stamp"_s);
        QCOMPARE(other.report->rows.MaxSpecID(), 9);
        QCOMPARE(other.report->title, u"Title"_s);
        QCOMPARE(other.report->reportTo, 2);
        QCOMPARE(other.report->width, 1); // the file says nothing of it
        QCOMPARE(other.report->options[9].ColWidth, 2.5F);
        // A file of an older system.
        QCOMPARE(read("coin\r\nM\xFCnzen\r\n").report->title, u"Münzen"_s);
    }

    void mutatedFiles()
    {
        const ReportDefinition current(m_catalogue, u"coin"_s);
        Chance chance(2);
        const QList<QByteArray> morsels{";",     "\r\n",   "\n",  "-",  "9",      "99999999",
                                        "1e308", "&HFFFF", ",",   "\0", "\xFF",   "0;0;0;0;0;0",
                                        "stamp", ";;;;",   "(1)", "$",  "3;1;2;4"};
        int valid = 0;
        for (int i = 0; i < 5000; ++i) {
            QByteArray file = anyFile(chance);
            for (int n = chance.from(1, 4); n > 0; --n) {
                const int at = chance.below(int(file.size()));
                const int length = chance.coin() ? 0 : chance.below(int(file.size()) - at);
                file.replace(at, chance.coin() ? length % 3 : length,
                             morsels[chance.below(int(morsels.size()))]);
            }
            const ReadReport read = readReport(file, current, m_catalogue, us);
            valid += read.isValid;
            QVERIFY(read.report || !read.isValid);
            if (!read.report)
                continue;
            const ReportDefinition &report = *read.report;
            QCOMPARE(report.options.size(), size_t(report.rows.MaxSpecID()) + 1);
            QCOMPARE(report.reportFields().size(), report.fields.size());
            QVERIFY(report.fields.size() <= report.rows.all().size());
            QVERIFY(report.reportTo >= 1 && report.reportTo <= 3 && report.pageNum >= 0 &&
                    report.pageNum <= 2);
            QVERIFY(std::max(report.sort1, report.sort2) < report.rows.all().size());
            QVERIFY(std::min(report.sort1, report.sort2) >= -1);
        }
        QVERIFY(valid > 100 && valid < 4000);
    }

    void filesOnTheDisk()
    {
        ScriptedDesktop desktop;
        SharedState shared(desktop, us);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.rpt"_s);
        const ReportDefinition report(m_catalogue, u"coin"_s);
        saveReportFile(path, report, shared);
        QCOMPARE(loadReportFile(path), reportFileText(report, us));
        const auto errorOf = [](auto step) {
            try {
                step();
            } catch (const NumberedError &error) {
                return error.description();
            }
            return QString();
        };
        // The collection itself, chosen by mistake.
        shared.DatabasePath = path;
        QVERIFY(
            errorOf([&] { saveReportFile(path, report, shared); }).contains(u"belongs to the collection"));
        const QString pipe = folder.filePath(u"pipe.rpt"_s);
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        for (const QString &missing : {folder.filePath(u"none/b.rpt"_s), folder.path(), pipe}) {
            QVERIFY(errorOf([&] { saveReportFile(missing, report, shared); }).contains(missing));
            QVERIFY(errorOf([&] { loadReportFile(missing); }).contains(missing));
        }
        QFile large(path);
        QVERIFY(large.resize(qint64(1) << 40)); // all of it zeros, none of it on the disk
        QVERIFY(!readReport(loadReportFile(path), report, m_catalogue, us).report);
    }

private:
    const Catalogue m_catalogue = smallCatalogue();
};

QTEST_GUILESS_MAIN(ReportFilesTest)
#include "ReportFiles.moc"
