// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/PreviewTarget.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "documents/ReportPreview.h"

namespace obelmark {

PreviewTarget::~PreviewTarget()
{
    if (m_report)
        m_shared.desktop.setHourglass(false);
}

void PreviewTarget::StartReportOutput(const ReportOpening &opening)
{
    m_tableFormat = opening.TableFormat;
    m_shared.desktop.setHourglass(true);
    m_report.emplace();
    m_report->setPage(m_preview.document().page());
    ReportPageSetup setup{opening.pageHeader, opening.pageFooter, opening.landscape, {}};
    if (m_shared.RepeatHeading)
        setup.heading = {opening.TableFormat, opening.TableHeading, 0xFF000000 | m_shared.HeadingShade};
    m_report->start(setup);
}

void PreviewTarget::addRow(const ReportRow &row)
{
    QList<QStringView> cells;
    cells.reserve(qsizetype(row.size()));
    bool isGrammar = false;
    for (const ReportValue &value : row) {
        cells.append(value.text);
        isGrammar = isGrammar || value.text.contains(u';') || value.text.contains(u'|');
    }
    if (!isGrammar) {
        m_report->addRow(m_tableFormat, cells);
        return;
    }
    // In the preview a ";" of a value ends its row, and a "|" its cell.
    QString body;
    for (const QStringView cell : cells) {
        body += cell;
        body += u'|';
    }
    body.back() = u';';
    m_report->addTable(m_tableFormat, body);
}

void PreviewTarget::addTable(QStringView format, QStringView body)
{
    m_report->addTable(format, body);
}

void PreviewTarget::addLine(QStringView) {}

void PreviewTarget::FinishReportOutput()
{
    m_report->end();
    m_preview.document().take(*m_report);
    finishEmpty();
    m_preview.show();
}

void PreviewTarget::finishEmpty()
{
    m_report.reset();
    m_shared.desktop.setHourglass(false);
}

} // namespace obelmark
