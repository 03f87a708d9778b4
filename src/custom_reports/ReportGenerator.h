// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

class ReportPreview;
struct ReportDefinition;
struct SharedState;

/// The columns of a report on the preview, in the table grammar.
struct ReportTable
{
    QString TableFormat;
    QString TableHeading;
};
/// The report prints at least one field.
ReportTable reportTable(const ReportDefinition &report);

/// Makes the report and sends it to its target. Tells the user why there is none: no field, no coin, a query
/// that the engine rejects, a file that cannot be written; what stood in the file before is unchanged then.
/// \throws NumberedError when there is no database or it cannot be read
void generateReport(const ReportDefinition &report, SharedState &shared, ReportPreview &preview);

} // namespace obelmark
