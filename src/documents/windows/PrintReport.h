// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <vector>

class QPrinter;
class QWidget;

namespace obelmark {

class Desktop;
class ReportDocument;
struct SharedState;

/// The pages that a print job with the printer's settings (page ranges, copies, collation, order) consists
/// of, in their order; counted from 0.
std::vector<qsizetype> pagesToPrint(const QPrinter &printer, qsizetype pageCount, qsizetype currentPage);

/// Prints with the printer's settings; the user sees how far it is, and may cancel. Pages of another paper
/// are made smaller when they would not fit.
void printReport(const ReportDocument &document, qsizetype currentPage, QPrinter &printer, Desktop &desktop);

/// Lets the user choose a printer, or a PDF file, and what to print. The document takes the paper that is
/// chosen.
void askAndPrint(ReportDocument &document, qsizetype currentPage, SharedState &shared, QWidget *owner);

} // namespace obelmark
