// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <vector>

namespace obelmark {

class ReportDocument;
struct SharedState;

/// What is to be written into a PDF file, and how the user is told of it.
struct PdfJob
{
    QString path;
    std::vector<qsizetype> pages; ///< counted from 0
    QString title;                ///< of the progress box
    QString label;                ///< "%1" is the page being written, "%2" how many there are
    QString failure;              ///< what comes before the reason when it fails
    QString device = {};          ///< what follows the label
};

/// Writes the file whole or, when it fails or the user cancels, leaves what was there. Tells of a failure.
void writePdf(const ReportDocument &document, const PdfJob &job, SharedState &shared);

/// Asks for a file and writes the report into it as PDF. A file that is there already is replaced when the
/// user agrees and all has been written, else it stays as it was.
void savePdf(const ReportDocument &document, SharedState &shared);

} // namespace obelmark
