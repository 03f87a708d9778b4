// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

class RegionalSettings;
struct ReportDefinition;

/// How columns are named in a query: by themselves, or with their tables, for reports in which two tables
/// share a column's name.
enum class ColumnNames { Plain, WithTables };

/// The query of a report, in the engine's dialect; its columns are the printed fields in their order, of
/// which there is at least one. \throws EngineError SyntaxError for a bound that is no number
QString reportQuery(const ReportDefinition &report, ColumnNames names, const RegionalSettings &regional);

} // namespace obelmark
