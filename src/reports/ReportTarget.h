// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/MenuChoices.h"
#include "runtime/NumberedError.h"
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace obelmark {

class ReportPreview;
struct SharedState;

/// A report's file could not be written; the description names the file and the reason. What stood there
/// before is unchanged.
class ReportFileError : public NumberedError
{
public:
    using NumberedError::NumberedError;
};

/// What a report has to say before its first row.
struct ReportOpening
{
    QString TableFormat;  ///< preview: columns of the rows, "2880|>1400;", see TableGrammar.h
    QString TableHeading; ///< preview: the headings repeated on every page, "Description|Price;"
    QString pageHeader;   ///< preview: left, centre and right part separated by "|"; "%d" is the page number
    QString pageFooter;   ///< preview: the same for the foot of the page; may be empty
    bool landscape = false;
    QStringList htmlLines; ///< web table: every line before the first row
    /// Text file: values are written as the preview has them, a ";" left out, a "|" beginning a cell.
    bool textAsTable = false;
};

/// How a web table shows a cell of a row.
enum class WebCell {
    Left,
    Right,
    Mark,    ///< in the middle, without the blanks around it
    Blank,   ///< a blank
    NoTotal, ///< a blank, below a column without a total
};

/// A cell of a report's row.
struct ReportValue
{
    QString text;
    WebCell web = WebCell::Left;
};
using ReportRow = std::vector<ReportValue>;

/// Where one report goes: to the preview, into a text file or into a web table.
class ReportTarget
{
public:
    using Kind = ReportKind;

    /// Makes the target. For files the user chooses one, with \a defaultName and \a filter as in
    /// Desktop::askSaveFile(); nullptr when that was cancelled or an existing file is to be kept.
    /// \throws ReportFileError
    static std::unique_ptr<ReportTarget> choose(Kind kind, SharedState &shared, ReportPreview &preview,
                                                const QString &defaultName, const QString &filter);

    virtual ~ReportTarget() = default;
    ReportTarget(const ReportTarget &) = delete;
    ReportTarget &operator=(const ReportTarget &) = delete;

    virtual Kind kind() const = 0;

    /// \throws ReportFileError, as all that follow
    virtual void StartReportOutput(const ReportOpening &opening) = 0;
    /// One row of the report, in the columns that it has begun with.
    virtual void addRow(const ReportRow &row) = 0;
    /// Preview only: one table, its columns and its rows in the table grammar.
    virtual void addTable(QStringView format, QStringView body) = 0;
    /// Files only: one line, without its end.
    virtual void addLine(QStringView line) = 0;
    /// Ends the report: shows the preview; writes the closing lines of a web table; puts the file in its
    /// place.
    virtual void FinishReportOutput() = 0;
    /// Ends a report that has turned out to have no rows: the file stays with what has been written, the
    /// preview is not shown.
    virtual void finishEmpty() = 0;
    // Destroyed without either, a file target leaves no file behind and an existing one as it was.

protected:
    ReportTarget() = default;
};

/// "<html>", the head with the title, "<body>" and "<table border=1>": how every web table begins.
QStringList htmlOpeningLines(const QString &title);

} // namespace obelmark
