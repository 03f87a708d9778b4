// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/ReportDefinition.h"
#include <QByteArray>
#include <optional>

namespace obelmark {

class RegionalSettings;
struct SharedState;

/// The bytes of a report file: 22 lines, the report-wide settings, then a line for each of the FieldOptions
/// with an entry for every specid from 1 to the largest, separated by ";".
QByteArray reportFileText(const ReportDefinition &report, const RegionalSettings &regional);

/// What a report file holds.
struct ReadReport
{
    /// Every check was passed.
    bool isValid = false;
    /// The report as far as the file could be read; nothing when its first line already was not accepted.
    std::optional<ReportDefinition> report;
};

/// Reads what reportFileText() has written, or some other tool. A file that is none, damaged, or has faults
/// of any kind answers with isValid false. \a current is the report that is being replaced: files may name
/// its main table in another spelling, and its unit of width stays until the file names one. \throws
/// CatalogueError when the catalogue rows that the file is for cannot be used
ReadReport readReport(const QByteArray &bytes, const ReportDefinition &current, const Catalogue &catalogue,
                      const RegionalSettings &regional);

/// Writes the file, which is complete or, after an error, what it was before. \throws NumberedError, its
/// description naming file and reason
void saveReportFile(const QString &path, const ReportDefinition &report, const SharedState &shared);
/// The bytes of a report file; of a file too large to be one, so many that readReport() refuses them.
/// \throws NumberedError, its description naming file and reason
QByteArray loadReportFile(const QString &path);

} // namespace obelmark
