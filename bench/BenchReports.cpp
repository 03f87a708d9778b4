// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_reports: the reports on a million coins. Into files, against the sqlite3 shell writing the same rows
// with tabs; their memory above an idle program; and whether ten times the coins take ten times as long.
#include "Collections.h"
#include "Comparison.h"
#include "common/SharedState.h"
#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"
#include "reports/CannedReports.h"
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

struct ReportCase
{
    const char *name;
    void (*run)(SharedState &, ReportPreview &);
    const char16_t *textName;
    const char16_t *htmlName;
    const char16_t *htmlFilter;
    const char16_t *plainQuery; ///< the same rows for the shell
};

void byCountry(SharedState &shared, ReportPreview &preview)
{
    shared.ReportGroupMode = 3;
    shared.SelectedGroupID = -1;
    RptCoinsBy(shared, preview, [&] { shared.FindCancelled = false; });
}

constexpr ReportCase cases[] = {
    {"coin list", RptCoinList, u"CoinDesc.txt", u"coindesc.htm",
     u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*",
     u"select descr, catnum, face, Year, quantity from Coin where not wantlist and not sold order by "
     u"descrsort"},
    {"coins by country", byCountry, u"Coin.txt", u"coin.htm", u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*",
     u"select coudesc, descr, catnum, face, Year, quantity from Coin left join country on Coin.couid = "
     u"country.couid where not wantlist and not sold order by coudescsort, descrsort"},
    {"value", RptValue, u"Value.txt", u"value.htm", u"html Files (*.htm)|*.htm|All Files (*.*)|*.*",
     u"select descr, catnum, quantity, pricepaid, pricepaid * quantity, catvalue, catvalue * quantity from "
     u"Coin "
     u"where not wantlist and not sold order by descrsort"},
};

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
    Program(qint64 coins, const ReportCase &report, bool html)
        : m_report(report), m_html(html), m_shared(m_desktop, RegionalSettings(QLocale(u"en_US"_s)))
    {
        m_shared.OutputTarget = html ? 3 : 2;
        m_shared.DatabasePath = collection(coins);
        m_shared.CoinDatabase = openCoinDatabase(m_shared.DatabasePath);
    }

    void run()
    {
        QFile::remove(file());
        m_desktop.reset();
        m_desktop.answerSaveFile(QString::fromUtf16(m_html ? m_report.htmlName : m_report.textName),
                                 m_html ? QString::fromUtf16(m_report.htmlFilter)
                                        : u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s,
                                 file());
        m_report.run(m_shared, m_preview);
        if (!m_desktop.problems().isEmpty() || !QFile::exists(file()))
            throw std::runtime_error("the report was not written");
    }

private:
    QString file() const { return m_folder.filePath(u"report"_s); }

    QTemporaryDir m_folder;
    const ReportCase &m_report;
    bool m_html;
    ScriptedDesktop m_desktop;
    SharedState m_shared;
    NoPreview m_preview;
};

void runShell(const ReportCase &report, const QString &file)
{
    QProcess shell;
    shell.setStandardOutputFile(file);
    shell.start(u"sqlite3"_s,
                {u"-tabs"_s, twinOf(collection(million)), QString::fromUtf16(report.plainQuery)});
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
        throw std::runtime_error("the sqlite3 shell failed");
}

/// A line of /proc/self/status, in MB.
double memory(const QByteArray &line)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        throw std::runtime_error("no /proc");
    const QByteArray all = status.readAll();
    const qsizetype at = all.indexOf('\n' + line + ':');
    return all.mid(at + line.size() + 2).trimmed().split(' ').first().toDouble() / 1024;
}

void forgetPeak()
{
    QFile clear(u"/proc/self/clear_refs"_s);
    if (!clear.open(QIODevice::WriteOnly) || clear.write("5") != 1)
        throw std::runtime_error("the peak of the memory cannot be reset");
}

Sides againstShell(const ReportCase &report, bool html)
{
    const auto program = std::make_shared<Program>(million, report, html);
    const auto folder = std::make_shared<QTemporaryDir>();
    return {
        .ours = [=] { return milliseconds([&] { program->run(); }); },
        .other = [=,
                  &report] { return milliseconds([&] { runShell(report, folder->filePath(u"rows"_s)); }); }};
}

Sides againstIdle(const ReportCase &report)
{
    const auto program = std::make_shared<Program>(million, report, false);
    const auto idle = std::make_shared<double>(memory("VmRSS"));
    return {.ours =
                [=] {
                    forgetPeak();
                    program->run();
                    return memory("VmHWM");
                },
            .other = [=] { return *idle; }};
}

Sides againstTenth(const ReportCase &report)
{
    const auto all = std::make_shared<Program>(million, report, false);
    const auto tenth = std::make_shared<Program>(million / 10, report, false);
    return {.ours = [=] { return milliseconds([&] { all->run(); }) / 10; },
            .other = [=] { return milliseconds([&] { tenth->run(); }); }};
}

void addReportBenches()
{
    // While the process is still as small as an idle program.
    for (const ReportCase &report : cases)
        registerComparison({.name = report.name + std::string(" above an idle program, 1 million"),
                            .prepare = [&report] { return againstIdle(report); },
                            .pairs = 1,
                            .target = {.more = 30},
                            .against = "idle",
                            .unit = "MB"});
    for (const ReportCase &report : cases) {
        const std::string name = report.name;
        for (const bool html : {false, true})
            registerComparison({.name = name + (html ? " as web table, 1 million" : " as text, 1 million"),
                                .prepare = [&report, html] { return againstShell(report, html); },
                                .pairs = 3,
                                .target = {.ratio = 2},
                                .against = "sqlite3 -tabs"});
        registerComparison({.name = name + ", a tenth of 1 million",
                            .prepare = [&report] { return againstTenth(report); },
                            .pairs = 3,
                            .target = {.ratio = 1.5},
                            .against = "100 thousand"});
    }
}

} // namespace

} // namespace obelmark::bench

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    obelmark::bench::addReportBenches();
    return obelmark::bench::runComparisons(argc, argv);
}
