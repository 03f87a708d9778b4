// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportDocument.h"
#include "reports/ReportTarget.h"

namespace obelmark {

/// A report on the pages of the report output window, where the one before stays until it is whole. The mouse
/// pointer is an hourglass while it is made.
class PreviewTarget final : public ReportTarget
{
public:
    PreviewTarget(SharedState &shared, ReportPreview &preview) : m_shared(shared), m_preview(preview) {}
    ~PreviewTarget() override;

    Kind kind() const override { return Kind::Preview; }
    void StartReportOutput(const ReportOpening &opening) override;
    void addRow(const ReportRow &row) override;
    void addTable(QStringView format, QStringView body) override;
    void addLine(QStringView line) override;
    void FinishReportOutput() override;
    void finishEmpty() override;

private:
    SharedState &m_shared;
    ReportPreview &m_preview;
    std::optional<ReportDocument> m_report; ///< the one being made
    QString m_tableFormat;
};

} // namespace obelmark
