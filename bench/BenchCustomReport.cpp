// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_custom_report: a custom report of ten fields, three of them from lookup tables, on a million coins
// into a text file, against the sqlite3 shell writing the rows of the same query with tabs.
#include "Collections.h"
#include "Comparison.h"
#include "common/SharedState.h"
#include "custom_reports/ReportDefinition.h"
#include "custom_reports/ReportGenerator.h"
#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"
#include "store/CoinFile.h"
#include "support/ScriptedDesktop.h"
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <stdexcept>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

struct Field
{
    const char16_t *column;
    FieldKind kind;
    bool isCurrency = false;
    const char16_t *table = u"";
    const char16_t *key = u"";
};

constexpr Field reportFields[] = {
    {u"descr", FieldKind::Text},
    {u"catnum", FieldKind::Text},
    {u"face", FieldKind::Number, true},
    {u"Year", FieldKind::Number},
    {u"quantity", FieldKind::Number},
    {u"PurchaseDate", FieldKind::Date},
    {u"pricepaid", FieldKind::Number, true},
    {u"coudesc", FieldKind::Text, false, u"country", u"couid"},
    {u"mindesc", FieldKind::Text, false, u"mint", u"minid"},
    {u"Condesc", FieldKind::Text, false, u"condition", u"conid"},
};

constexpr char16_t sameQuery[] =
    u"select descr, catnum, face, Year, quantity, PurchaseDate, pricepaid, coudesc, mindesc, Condesc from "
    u"((Coin left join country on Coin.couid = country.couid) left join mint on Coin.minid = mint.minid) "
    u"left "
    u"join condition on Coin.conid = condition.conid order by descrsort";

ReportDefinition tenFields()
{
    QList<CatalogueField> rows;
    QList<int> ids;
    for (const Field &field : reportFields) {
        ids << int(ids.size()) + 1;
        CatalogueField row;
        row.specid = ids.last();
        row.usewith = u"coin"_s;
        row.desc = row.fieldname = QString::fromUtf16(field.column);
        row.datatype = field.kind;
        row.IsCurrency = field.isCurrency;
        row.FileName = QString::fromUtf16(field.table);
        row.linkfield = QString::fromUtf16(field.key);
        rows << row;
    }
    ReportDefinition report(rows, u"coin"_s);
    report.fields = ids;
    report.reportTo = 2;
    report.sort1 = 0;
    return report;
}

class NoPreview : public ReportPreview
{
public:
    ReportDocument &document() override { throw std::logic_error("the report went to the preview"); }
    void show() override {}
};

/// A program that has the collection open.
class Program
{
public:
    Program() : m_shared(m_desktop, RegionalSettings(QLocale(u"en_US"_s)))
    {
        m_shared.DatabasePath = collection(million);
        m_shared.CoinDatabase = openCoinDatabase(m_shared.DatabasePath);
    }

    void run()
    {
        const QString file = m_folder.filePath(u"report"_s);
        QFile::remove(file);
        m_desktop.reset();
        m_desktop.answerSaveFile(u"coin.txt"_s, u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s, file);
        generateReport(m_report, m_shared, m_preview);
        if (!m_desktop.problems().isEmpty() || !QFile::exists(file))
            throw std::runtime_error("the report was not written");
    }

private:
    QTemporaryDir m_folder;
    const ReportDefinition m_report = tenFields();
    ScriptedDesktop m_desktop;
    SharedState m_shared;
    NoPreview m_preview;
};

void runShell(const QString &file)
{
    QProcess shell;
    shell.setStandardOutputFile(file);
    shell.start(u"sqlite3"_s, {u"-tabs"_s, twinOf(collection(million)), QString::fromUtf16(sameQuery)});
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
        throw std::runtime_error("the sqlite3 shell failed");
}

Sides againstShell()
{
    const auto program = std::make_shared<Program>();
    const auto folder = std::make_shared<QTemporaryDir>();
    return {.ours = [=] { return milliseconds([&] { program->run(); }); },
            .other = [=] { return milliseconds([&] { runShell(folder->filePath(u"rows"_s)); }); }};
}

} // namespace

} // namespace obelmark::bench

int main(int argc, char *argv[])
{
    using namespace obelmark::bench;
    const QCoreApplication application(argc, argv);
    registerComparison({.name = "custom report of ten fields as text, 1 million",
                        .prepare = againstShell,
                        .pairs = 3,
                        .target = {.ratio = 2.5},
                        .against = "sqlite3 -tabs"});
    return runComparisons(argc, argv);
}
