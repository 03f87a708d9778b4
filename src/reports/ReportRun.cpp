// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/ReportRun.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "reports/CannedReport.h"
#include "reports/ReportRows.h"
#include "reports/ReportTarget.h"
#include "reports/RowValues.h"
#include "reports/RunningSums.h"
#include "runtime/Formats.h"
#include <QScopeGuard>

namespace obelmark {

using namespace Qt::StringLiterals;
using Kind = ReportTarget::Kind;

namespace {

QStringList htmlLines(const CannedReport &report)
{
    QStringList lines = htmlOpeningLines(report.htmlTitle.value_or(report.title));
    lines << u"<tr><th colspan=%1>%2</th></tr>"_s.arg(QString::number(report.htmlTitleColumns),
                                                      report.htmlTableTitle.value_or(report.title));
    const QStringList headings = report.htmlHeadings.value_or(report.headings).split(u'|');
    for (qsizetype i = 0; i < headings.size(); ++i) {
        const bool last = i + 1 == headings.size();
        lines << (i == 0 ? u"<tr><th>"_s : u"<th>"_s) + headings[i] +
                     (last ? report.htmlHeadingsEnd : u"</th>"_s);
    }
    return lines;
}

ReportOpening openingOf(const CannedReport &report, const RegionalSettings &regional)
{
    return {.TableFormat = report.TableFormat,
            .TableHeading = report.headings + u';',
            .pageHeader = u"%1|%2|Page %d"_s.arg(formatShortDate(Date::today(), regional), report.title),
            .pageFooter = {},
            .htmlLines = htmlLines(report),
            .textAsTable = true};
}

void addTotals(ReportTarget &target, const CannedReport &report, const RunningSums &sums)
{
    for (const TotalsRow &row : report.totalsRows) {
        switch (target.kind()) {
        case Kind::Preview:
            target.addTable(row.format.isEmpty() ? report.TableFormat : row.format,
                            sums.filledIn(row.preview));
            break;
        case Kind::TextFile:
            target.addLine(sums.filledIn(row.text, report.plainTextTotals ? RunningSums::Amounts::Plain
                                                                          : RunningSums::Amounts::Currency));
            break;
        case Kind::HtmlFile:
            target.addLine(sums.filledIn(row.html));
            break;
        }
    }
}

void makeReport(const CannedReport &report, SharedState &shared, ReportPreview &preview)
{
    const Kind kind = shared.OutputTarget;
    const bool text = kind == Kind::TextFile;
    const auto target =
        ReportTarget::choose(kind, shared, preview, text ? report.textFile : report.htmlFile,
                             text ? u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s : report.htmlFilter);
    if (!target)
        return;
    target->StartReportOutput(openingOf(report, shared.regional));

    RowValues values(report.cells, shared.regional);
    RunningSums sums(report.sums, shared.regional);
    const RowsRead read = forEachRow(shared, report.query, [&](const ForwardOnly &row) {
        sums.add(row);
        target->addRow(values.of(row));
    });
    if (read == RowsRead::None) {
        target->finishEmpty();
        shared.desktop.showMessage(report.emptyMessage);
    } else if (read == RowsRead::All) {
        addTotals(*target, report, sums);
        target->FinishReportOutput();
    }
}

} // namespace

void runReport(const CannedReport &report, SharedState &shared, ReportPreview &preview)
{
    const auto pointerBack = qScopeGuard([&] { shared.desktop.setHourglass(false); });
    shared.RepeatHeading = true;
    try {
        makeReport(report, shared, preview);
    } catch (const ReportFileError &error) {
        shared.desktop.showMessage(error.description());
    }
}

} // namespace obelmark
