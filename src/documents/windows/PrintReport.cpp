// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/PrintReport.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include "documents/windows/SavePdf.h"
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

/// Paper on which a report cannot be laid out sensibly: labels. Its pages are made smaller instead.
static constexpr double smallestPaper = 4 * twipsPerInch;

static const QString printing = u"Printing..."_s;
static const QString pageLine = u"Now printing Page %1 of %2"_s;
static const QString couldNotPrint = u"The report could not be printed."_s;

std::vector<qsizetype> pagesToPrint(const QPrinter &printer, qsizetype pageCount, qsizetype currentPage)
{
    const QPageRanges ranges = printer.pageRanges();
    const auto isWanted = [&](qsizetype page) {
        switch (printer.printRange()) {
        case QPrinter::PageRange:
            return ranges.isEmpty() || ranges.contains(int(page) + 1);
        case QPrinter::CurrentPage:
            return page == currentPage;
        default:
            return true;
        }
    };
    // A printer that makes copies by itself gets every page once.
    const int copies = printer.supportsMultipleCopies() ? 1 : qMax(1, printer.copyCount());
    const int together = printer.collateCopies() ? 1 : copies;
    std::vector<qsizetype> pages;
    for (int copy = 0; copy < copies / together; ++copy) {
        for (qsizetype page = 0; page < pageCount; ++page) {
            if (isWanted(page))
                pages.insert(pages.end(), std::size_t(together), page);
        }
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(pages);
    return pages;
}

/// The second line of the progress box, where both are known: which printer it is, and where it stands.
static QString deviceLine(const QString &name, const QString &place)
{
    return name.isEmpty() || place.isEmpty() ? QString() : u"\non the %1 on %2"_s.arg(name, place);
}

void printReport(const ReportDocument &document, qsizetype currentPage, QPrinter &printer, Desktop &desktop)
{
    const std::vector<qsizetype> pages = pagesToPrint(printer, document.pageCount(), currentPage);
    if (pages.empty()) {
        desktop.showMessage(u"The report has none of the pages that are to be printed."_s);
        return;
    }
    printer.setFullPage(true);
    const QSizeF paper = printer.pageLayout().fullRectPoints().size() * twipsPerPoint;
    const QSizeF size = document.page().size();
    const double fit = std::min({1.0, paper.width() / size.width(), paper.height() / size.height()});
    const auto progress = desktop.showProgress(printing, true);
    const QString device = deviceLine(printer.printerName(), QPrinterInfo(printer).location());

    QPainter painter;
    bool isWell = painter.begin(&printer);
    const double scale = printer.resolution() / twipsPerInch * fit;
    for (std::size_t i = 0; isWell && i < pages.size(); ++i) {
        const QString label = pageLine.arg(i + 1).arg(pages.size()) + device;
        if (!progress->update(label, qint64(i), qint64(pages.size()))) {
            printer.abort();
            return;
        }
        isWell = i == 0 || printer.newPage();
        painter.save();
        painter.scale(scale, scale);
        document.paintPage(painter, pages[i]);
        painter.restore();
    }
    isWell = isWell && painter.end() && printer.printerState() != QPrinter::Error;
    if (!isWell)
        desktop.showMessage(couldNotPrint);
}

void askAndPrint(ReportDocument &document, qsizetype currentPage, SharedState &shared, QWidget *owner)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(document.title());
    printer.setPageSize(document.page().paper);
    printer.setPageOrientation(document.page().landscape ? QPageLayout::Landscape : QPageLayout::Portrait);

    QPrintDialog dialog(&printer, owner);
    dialog.setObjectName(u"printDialog"_s);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    dialog.setMinMax(1, int(document.pageCount()));
    if (dialog.exec() != QDialog::Accepted)
        return;

    const QPageLayout layout = printer.pageLayout();
    const PageSetup chosen{layout.pageSize(), layout.orientation() == QPageLayout::Landscape};
    if (chosen.size() != document.page().size() &&
        std::min(chosen.size().width(), chosen.size().height()) >= smallestPaper)
        document.setPage(chosen);
    // The toolkit's own way into a file would leave half of one behind, and tell of no failure.
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        const QString path = printer.outputFileName();
        writePdf(document,
                 {path, pagesToPrint(printer, document.pageCount(), currentPage), printing, pageLine,
                  couldNotPrint, deviceLine(u"PDF writer"_s, path)},
                 shared);
        return;
    }
    printReport(document, currentPage, printer, shared.desktop);
}

} // namespace obelmark
