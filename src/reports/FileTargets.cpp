// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/FileTargets.h"

#include "common/OwnFiles.h"
#include "common/ProductPage.h"
#include "runtime/TextEncoding.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// So many bytes of lines are handed to the file at a time.
constexpr qsizetype linesAtATime = 16 * 1024;

ReportFileError reportFileError(const NumberedError &error)
{
    return ReportFileError(error.number(),
                           u"The report could not be written.  %1"_s.arg(error.description()));
}

template<class Step>
void writing(Step step)
{
    try {
        step();
    } catch (const NumberedError &error) {
        throw reportFileError(error);
    }
}

} // namespace

void requireNotCollection(const QString &path, const SharedState &shared)
{
    writing([&] { requireForeignFile(path, shared); });
}

FileTarget::FileTarget(const QString &path)
{
    writing([&] { m_file.emplace(path); });
}

void FileTarget::addTable(QStringView, QStringView) {}

void FileTarget::addLine(QStringView line)
{
    m_lines += inFileEncoding(line);
    m_lines += "\r\n";
    if (m_lines.size() < linesAtATime)
        return;
    writing([&] { m_file->write(m_lines); });
    m_lines.resize(0);
}

void FileTarget::FinishReportOutput()
{
    writing([&] {
        m_file->write(m_lines);
        m_file->commit();
    });
}

void FileTarget::finishEmpty()
{
    FileTarget::FinishReportOutput();
}

void TextFileTarget::StartReportOutput(const ReportOpening &opening)
{
    m_asTable = opening.textAsTable;
}

void TextFileTarget::addRow(const ReportRow &row)
{
    m_line.resize(0);
    for (const ReportValue &value : row) {
        m_line += value.text;
        m_line += u'\t';
    }
    m_line.chop(1);
    if (m_asTable)
        m_line.remove(u';').replace(u'|', u'\t');
    addLine(m_line);
}

void HtmlFileTarget::StartReportOutput(const ReportOpening &opening)
{
    for (const QString &line : opening.htmlLines)
        addLine(line);
}

void HtmlFileTarget::addRow(const ReportRow &row)
{
    m_line.resize(0);
    m_line += "<tr>"_L1;
    for (const auto &[text, web] : row) {
        switch (web) {
        case WebCell::Left:
            m_line += "<td>"_L1 + text + "</td>"_L1;
            break;
        case WebCell::Right:
            m_line += "<td align=right>"_L1 + text + "</td>"_L1;
            break;
        case WebCell::Mark:
            m_line += "<td align=center>"_L1 + text.trimmed() + "</td>"_L1;
            break;
        case WebCell::Blank:
            m_line += "<td>&nbsp;</td>"_L1;
            break;
        case WebCell::NoTotal:
            m_line += "<TD>&nbsp;</TD>"_L1;
            break;
        }
    }
    m_line += "</tr>"_L1;
    addLine(m_line);
}

void HtmlFileTarget::FinishReportOutput()
{
    addLine(u"</table>");
    addLine(u"<H6>List Produced by <A HREF=\"%1\">Obelmark</A></H6>"_s.arg(QString::fromUtf16(productPage)));
    addLine(u"</body>");
    addLine(u"</html>");
    FileTarget::FinishReportOutput();
}

} // namespace obelmark
