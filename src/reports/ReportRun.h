// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

struct CannedReport;
class ReportPreview;
struct SharedState;

/// Makes the report and sends it where SharedState::OutputTarget says. \throws NumberedError when the
/// collection cannot be read or a sum becomes too large
void runReport(const CannedReport &report, SharedState &shared, ReportPreview &preview);

} // namespace obelmark
