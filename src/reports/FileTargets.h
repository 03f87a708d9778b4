// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/ReportTarget.h"
#include "runtime/SafeFile.h"
#include <optional>

namespace obelmark {

/// requireForeignFile() for reports. \throws ReportFileError
void requireNotCollection(const QString &path, const SharedState &shared);

/// A report as lines in a file, which takes its place when the report is finished.
class FileTarget : public ReportTarget
{
public:
    void addTable(QStringView format, QStringView body) final;
    void addLine(QStringView line) final;
    void FinishReportOutput() override;
    void finishEmpty() final;

protected:
    explicit FileTarget(const QString &path);

private:
    std::optional<SafeFile> m_file;
    QByteArray m_lines; ///< not yet handed to the file
};

/// Nothing but the rows.
class TextFileTarget final : public FileTarget
{
public:
    explicit TextFileTarget(const QString &path) : FileTarget(path) {}
    Kind kind() const override { return Kind::TextFile; }
    void StartReportOutput(const ReportOpening &opening) override;
    void addRow(const ReportRow &row) override;

private:
    bool m_asTable = false;
    QString m_line;
};

class HtmlFileTarget final : public FileTarget
{
public:
    explicit HtmlFileTarget(const QString &path) : FileTarget(path) {}
    Kind kind() const override { return Kind::HtmlFile; }
    void StartReportOutput(const ReportOpening &opening) override;
    void addRow(const ReportRow &row) override;
    void FinishReportOutput() override;

private:
    QString m_line;
};

} // namespace obelmark
