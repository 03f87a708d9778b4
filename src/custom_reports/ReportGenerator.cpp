// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportGenerator.h"

#include "common/SharedState.h"
#include "custom_reports/ReportCells.h"
#include "custom_reports/ReportDefinition.h"
#include "custom_reports/ReportNumbers.h"
#include "custom_reports/ReportQuery.h"
#include "desktop/Desktop.h"
#include "engine/language/EngineError.h"
#include "engine/rows/Snapshot.h"
#include "reports/ReportRows.h"
#include "reports/ReportTarget.h"
#include "runtime/Formats.h"
#include <QScopeGuard>
#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

using Kind = ReportTarget::Kind;

constexpr float twipsPerInch = 1440;
/// Exact would be 566.9; the widths of the reports that collectors have saved are meant for this one.
constexpr float twipsPerCentimetre = 561.6F;
constexpr int pageNumberAtBottom = 0;
constexpr int pageNumberInHeader = 1;

/// Whether the error says that the query is at fault, and not the database.
bool isRejection(const EngineError &error)
{
    return error.number() == UnknownColumn || error.number() == SyntaxError ||
           error.number() == UnknownTable || error.number() == AmbiguousColumn;
}

class Generation
{
public:
    Generation(const ReportDefinition &report, SharedState &shared, ReportTarget &target)
        : m_report(report), m_shared(shared), m_target(target)
    {
        for (const CatalogueField *field : report.printedFields()) {
            const FieldOptions &options = report.optionsOf(*field);
            m_columns.push_back({field, options.CurrencyField, options.ShowTotal, {}});
        }
    }

    void run()
    {
        RowsRead result{};
        try {
            result = readRows(ColumnNames::Plain);
        } catch (const EngineError &error) {
            if (error.number() != AmbiguousColumn)
                throw;
            result = readRows(ColumnNames::WithTables);
        }
        if (result == RowsRead::Cancelled)
            return;
        begin();
        if (result == RowsRead::None) {
            m_target.finishEmpty();
            m_shared.desktop.setHourglass(false);
            m_shared.desktop.showMessage(
                u"No records have been entered that may be included in the specified report"_s);
            return;
        }
        addTotals();
        m_target.FinishReportOutput();
    }

private:
    struct Column
    {
        const CatalogueField *field;
        bool isCurrency;
        bool showTotal;
        ColumnTotal total;
    };

    RowsRead readRows(ColumnNames names)
    {
        return forEachRow(m_shared, reportQuery(m_report, names, m_shared.regional),
                          [this](const ForwardOnly &row) {
                              begin();
                              addRow(row);
                          });
    }

    /// Not before the query has been accepted: the report shown last stays until then.
    void begin()
    {
        if (std::exchange(m_hasBegun, true))
            return;
        const ReportTable table = reportTable(m_report);
        QString header =
            (m_report.dateInHeader ? formatShortDate(Date::today(), m_shared.regional) : QString()) + u'|' +
            m_report.title + u'|';
        if (m_report.pageNum == pageNumberInHeader)
            header += u"Page %d"_s;
        const QString footer = m_report.pageNum == pageNumberAtBottom ? u"|Page %d|"_s : QString();
        m_target.StartReportOutput(
            {table.TableFormat, table.TableHeading, header, footer, m_report.orient != 0, htmlLines()});
    }

    QStringList htmlLines() const
    {
        QStringList lines = htmlOpeningLines(m_report.title);
        lines << u"<tr><th colspan = "_s + QString::number(m_report.fields.size()) + u'>' + m_report.title +
                     u"</th></tr>"_s
              << u"<tr>"_s;
        for (const Column &column : m_columns)
            lines << u"<th>"_s + column.field->desc + u"</th>"_s;
        return lines << u"</tr>"_s;
    }

    void addRow(const ForwardOnly &row)
    {
        m_row.clear();
        int position = 0;
        for (Column &column : m_columns) {
            const Value value = row.value(position++);
            const bool isNumber = column.field->datatype == FieldKind::Number;
            if (column.showTotal && isNumber)
                column.total.add(value);
            m_row.push_back({cellText(value, column.field->datatype, column.isCurrency, m_shared.regional),
                             isNumber ? WebCell::Right : WebCell::Left});
        }
        m_target.addRow(m_row);
    }

    void addTotals()
    {
        m_row.clear();
        bool any = false;
        for (const Column &column : m_columns) {
            any = any || column.showTotal;
            if (column.showTotal)
                m_row.push_back({column.total.text(column.isCurrency, m_shared.regional), WebCell::Right});
            else
                m_row.push_back({{}, WebCell::NoTotal});
        }
        if (any)
            m_target.addRow(m_row);
    }

    const ReportDefinition &m_report;
    SharedState &m_shared;
    ReportTarget &m_target;
    std::vector<Column> m_columns;
    ReportRow m_row;
    bool m_hasBegun = false;
};

std::unique_ptr<ReportTarget> chooseTarget(const ReportDefinition &report, SharedState &shared,
                                           ReportPreview &preview)
{
    const auto kind = Kind(report.reportTo);
    const bool isHtml = kind == Kind::HtmlFile;
    return ReportTarget::choose(kind, shared, preview, report.SpecUseWith + (isHtml ? u".htm"_s : u".txt"_s),
                                isHtml ? u"Html Files (*.htm)|*.htm|All Files (*.*)|*.*"_s
                                       : u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s);
}

} // namespace

ReportTable reportTable(const ReportDefinition &report)
{
    const float twipsPerUnit = report.width == 0 ? twipsPerInch : twipsPerCentimetre;
    ReportTable table;
    for (const CatalogueField *field : report.printedFields()) {
        if (field->datatype == FieldKind::Number)
            table.TableFormat += u'>';
        // The product may be more than a number of single precision holds.
        constexpr float most = std::numeric_limits<float>::max();
        const float twips = std::clamp(twipsPerUnit * report.optionsOf(*field).ColWidth, -most, most);
        table.TableFormat += plainSingle(twips, fileSettings()) + u'|';
        table.TableHeading += field->desc + u'|';
    }
    table.TableFormat.back() = u';';
    table.TableHeading.back() = u';';
    return table;
}

void generateReport(const ReportDefinition &report, SharedState &shared, ReportPreview &preview)
{
    if (report.printedFields().isEmpty()) {
        shared.desktop.showMessage(u"You have not selected any fields to include in the report"_s);
        return;
    }
    shared.RepeatHeading = true;
    const auto pointer = qScopeGuard([&] { shared.desktop.setHourglass(false); });
    const auto tell = [&](const QString &text) {
        shared.desktop.setHourglass(false);
        shared.desktop.showMessage(text);
    };
    try {
        const auto target = chooseTarget(report, shared, preview);
        if (!target)
            return;
        shared.desktop.setHourglass(true);
        Generation(report, shared, *target).run();
    } catch (const ReportFileError &error) {
        tell(error.description());
    } catch (const EngineError &error) {
        if (!isRejection(error))
            throw;
        tell(u"%1  %2"_s.arg(QString::number(error.number()), error.description()));
    }
}

} // namespace obelmark
