// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_preview: the pages of large reports, from the first row to the PDF file.
#include "Comparison.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <malloc.h>
#include <memory>
#include <stdexcept>

namespace {

using namespace Qt::StringLiterals;
using namespace obelmark;
using namespace obelmark::bench;

constexpr int hundredThousand = 100'000;
constexpr int million = 1'000'000;
const QString format = u"4680|1400|>1300|>1300|>1300;"_s;
constexpr int columnWidths[] = {4680, 1400, 1300, 1300, 1300};
const PageSetup letter{QPageSize(QPageSize::Letter)};

/// Rows of five cells and 72 letters; the long words of every 16th need two lines.
class Rows
{
public:
    Rows()
    {
        for (int i = 0; i < kinds; ++i) {
            const QString coin = i % 16 == 0 ? u"COMMEMORATIVE HALF DOLLAR, WASHINGTON COMM"_s
                                             : u"Half dollar, will be in fine order, toning"_s;
            const QString row =
                coin + u"|KM-%1|$0.50|1853|%2;"_s.arg(i, 5, 10, QLatin1Char('0')).arg(i % 7 + 1, 9);
            if (row.size() != length + 1)
                throw std::runtime_error("the rows are not of the length that is promised");
            m_rows.append(row);
        }
    }

    static constexpr int length = 72;
    const QString &row(qsizetype i) const { return m_rows[i % kinds]; }

private:
    static constexpr int kinds = 4096;
    QStringList m_rows;
};

const Rows &rows()
{
    static const Rows all;
    return all;
}

void start(ReportDocument &document)
{
    document.setPage(letter);
    document.start({u"1/5/2005|Coin List|Page %d"_s,
                    {},
                    false,
                    RepeatedHeading{format, u"Description|Cat #|Face Value|Year|Quantity;"_s}});
}

std::shared_ptr<ReportDocument> report(int rowCount)
{
    auto document = std::make_shared<ReportDocument>();
    start(*document);
    for (int i = 0; i < rowCount; ++i)
        document->addTable(format, rows().row(i));
    document->end();
    return document;
}

/// A page at 144 pixels to the inch.
void paint(const ReportDocument &document, qsizetype page)
{
    static QImage image((letter.size() / 10).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(0.1, 0.1);
    document.paintPage(painter, page);
}

/// From the start of a report to its first page on screen, while the one before has that many rows.
double firstPage(ReportDocument &document)
{
    return milliseconds([&] {
        start(document);
        for (int i = 0; document.pageCount() < 2; ++i)
            document.addTable(format, rows().row(i));
        paint(document, 0);
    });
}

Sides prepareFirstPage(int rowCount)
{
    const auto sample = [](int count) {
        return [count] {
            const auto document = report(count);
            return firstPage(*document);
        };
    };
    return {.ours = sample(rowCount), .other = sample(1'000)};
}

Sides preparePagination(int rowCount, int share)
{
    rows();
    const auto sample = [](int count) { return milliseconds([&] { report(count); }); };
    return {.ours = [=] { return sample(rowCount); },
            .other = [=] { return share * sample(rowCount / share); }};
}

Sides prepareAnyPage()
{
    const auto document = report(million);
    const auto chance = std::make_shared<QRandomGenerator>(1);
    return {.ours =
                [=] {
                    const auto page = qsizetype(chance->bounded(quint32(document->pageCount())));
                    return milliseconds([&] { paint(*document, page); });
                },
            .other = [=] { return milliseconds([&] { paint(*document, 0); }); }};
}

Sides prepareOrientation()
{
    const auto sample = [](int count) {
        return [document = report(count)] {
            const PageSetup turned{letter.paper, !document->page().landscape};
            return milliseconds([&] { document->setPage(turned); });
        };
    };
    return {.ours = sample(million), .other = sample(hundredThousand)};
}

double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

Sides prepareMemory()
{
    rows();
    const auto memory = [](int count) {
        const double before = bytesInUse();
        const auto document = report(count);
        return bytesInUse() - before;
    };
    return {.ours = [=] { return (memory(million) - memory(hundredThousand)) / (million - hundredThousand); },
            .other = [] { return double(Rows::length); }};
}

void writePdf(const ReportDocument &document, const QString &path)
{
    QPdfWriter writer(path);
    writer.setResolution(int(twipsPerInch));
    writer.setPageLayout(QPageLayout(letter.paper, QPageLayout::Portrait, QMarginsF()));
    QPainter painter(&writer);
    for (qsizetype page = 0; page < document.pageCount(); ++page) {
        if (page > 0)
            writer.newPage();
        document.paintPage(painter, page);
    }
}

/// What the handler of a paintRequested() signal does: every cell with drawText().
void printPlainly(int rowCount, const QString &path)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageSize(letter.paper);
    printer.setFullPage(true);
    QPainter painter(&printer);
    painter.scale(printer.resolution() / twipsPerInch, printer.resolution() / twipsPerInch);
    QFont font(u"Times New Roman"_s);
    font.setPixelSize(225);
    painter.setFont(font);
    double top = 1400;
    for (int i = 0; i < rowCount; ++i) {
        const QStringList cells = rows().row(i).chopped(1).split(u'|');
        double height = 0, left = pageMarginX;
        for (qsizetype cell = 0; cell < cells.size(); ++cell) {
            const QRectF room(left, top, columnWidths[cell] - 120, 1000);
            QRectF used;
            painter.drawText(room, Qt::TextWordWrap | (cell < 2 ? Qt::AlignLeft : Qt::AlignRight),
                             cells[cell], &used);
            height = qMax(height, used.height());
            left += columnWidths[cell];
        }
        top += height + 40;
        if (top > 14'600 && i + 1 < rowCount) {
            printer.newPage();
            top = 1400;
        }
    }
}

Sides preparePdf()
{
    static constexpr int rowCount = 10'000;
    const auto folder = std::make_shared<QTemporaryDir>();
    const auto document = report(rowCount);
    return {
        .ours = [=] { return milliseconds([&] { writePdf(*document, folder->filePath(u"ours.pdf"_s)); }); },
        .other = [=] { return milliseconds([&] { printPlainly(rowCount, folder->filePath(u"p.pdf"_s)); }); }};
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    for (const int count : {hundredThousand, million}) {
        const std::string size = count == million ? "1 million" : "100 thousand";
        registerComparison({.name = "first page of a report, " + size + " rows before",
                            .prepare = [count] { return prepareFirstPage(count); },
                            .pairs = 3,
                            .target = {.atMost = 50},
                            .against = "1 thousand"});
    }
    registerComparison({.name = "pages broken, 100 thousand rows",
                        .prepare = [] { return preparePagination(hundredThousand, 10); },
                        .pairs = 5,
                        .target = {.atMost = 1000},
                        .against = "10 x a tenth"});
    registerComparison({.name = "pages broken, 1 million rows",
                        .prepare = [] { return preparePagination(million, 10); },
                        .pairs = 3,
                        .target = {.atMost = 10'000, .ratio = 1.25},
                        .against = "10 x a tenth"});
    registerComparison({.name = "any page painted, 1 million rows",
                        .prepare = prepareAnyPage,
                        .pairs = 200,
                        .target = {.atMost = 10},
                        .against = "first page"});
    registerComparison({.name = "paper turned, 1 million rows",
                        .prepare = prepareOrientation,
                        .pairs = 20,
                        .target = {.atMost = 20},
                        .against = "100 thousand"});
    registerComparison({.name = "memory of a row between 100 thousand and 1 million",
                        .prepare = prepareMemory,
                        .pairs = 2,
                        .target = {.atMost = 110},
                        .against = "its letters",
                        .unit = "B"});
    registerComparison({.name = "PDF file, 10 thousand rows",
                        .prepare = preparePdf,
                        .pairs = 5,
                        .target = {.ratio = 1},
                        .against = "drawText"});
    return runComparisons(argc, argv);
}
