// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/SharedState.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include "documents/windows/OutputWindow.h"
#include "documents/windows/PageView.h"
#include "documents/windows/PrintReport.h"
#include "support/GuiDriver.h"
#include "support/ScriptedDesktop.h"

#include <QPrinter>

using namespace obelmark;

namespace {

const QString pdfFilter = u"PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*"_s;

void fill(ReportDocument &document, int rows)
{
    document.start({u"1/5/2005|Coin List|Page %d"_s, {}, false, {}});
    document.setPage({QPageSize(QPageSize::Letter)});
    for (int i = 0; i < rows; ++i)
        document.addTable(u"4320|>1440;",
                          u"Coin %1%2|$1;"_s.arg(i).arg(i % 100 == 50 ? u" rare"_s : QString()));
    document.end();
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qsizetype pagesInPdf(const QByteArray &pdf)
{
    return pdf.startsWith("%PDF") && pdf.trimmed().endsWith("%%EOF") ? pdf.count("/Type /Page\n") : 0;
}

/// The output window with a report of 500 rows.
struct Shown
{
    Shown()
    {
        fill(output.document(), 500);
        output.show();
        window = QApplication::activeWindow();
        QVERIFY(
            gui::waitUntil([this] { return (window = QApplication::activeWindow()) != nullptr; }, "shown"));
        pages = &gui::find<PageView>(*window, u"pages"_s);
    }
    void click(const QString &button) const { QVERIFY(gui::click(gui::find<QToolButton>(*window, button))); }
    qsizetype page() const { return pages->currentPage() + 1; }
    qsizetype count() const { return pages->pageCount(); }
    /// Turns the wheel a notch over the middle of the view.
    void wheel(int notches, Qt::KeyboardModifiers modifiers, QPoint at) const
    {
        QWheelEvent event(QPointF(at), pages->viewport()->mapToGlobal(QPointF(at)), {}, {0, 120 * notches},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pages->viewport(), &event);
    }

    ScriptedDesktop desktop;
    SharedState shared{desktop, RegionalSettings(QLocale(u"en_US"_s))};
    OutputWindow output{shared};
    QWidget *window = nullptr;
    PageView *pages = nullptr;
};

} // namespace

class ReportPreviewsTest : public QObject
{
    Q_OBJECT

private slots:
    void turningPages()
    {
        const Shown s;
        QVERIFY(s.count() > 10);
        QCOMPARE(gui::find<QLabel>(*s.window, u"lblPageCount"_s).text(), u"of %1"_s.arg(s.count()));
        QCOMPARE(s.pages->zoom(), Zoom::PageWidth);
        QVERIFY(!gui::find<QToolButton>(*s.window, u"cmdPreviousPage"_s).isEnabled());
        s.click(u"cmdNextPage"_s);
        s.click(u"cmdNextPage"_s);
        QCOMPARE(s.page(), 3);
        s.click(u"cmdPreviousPage"_s);
        QCOMPARE(gui::find<QSpinBox>(*s.window, u"txtPage"_s).value(), 2);
        s.click(u"cmdLastPage"_s);
        QCOMPARE(s.page(), s.count());
        QVERIFY(!gui::find<QToolButton>(*s.window, u"cmdNextPage"_s).isEnabled());
        QVERIFY(gui::focusByMouse(gui::find<QSpinBox>(*s.window, u"txtPage"_s)));
        gui::press(Qt::Key_A, Qt::ControlModifier);
        gui::type(u"7"_s);
        gui::press(Qt::Key_Return);
        QCOMPARE(s.page(), 7);
        s.pages->setFocus();
        gui::press(Qt::Key_End);
        QCOMPARE(s.page(), s.count());
        gui::press(Qt::Key_Home);
        QCOMPARE(s.page(), 1);
        // Seen whole, pages are turned one by one.
        gui::find<QAction>(*s.window, u"mnuZoom_1"_s).trigger();
        gui::press(Qt::Key_PageDown);
        s.wheel(-1, Qt::NoModifier, {50, 50});
        QCOMPARE(s.page(), 3);
        gui::press(Qt::Key_PageUp);
        QCOMPARE(s.page(), 2);
        gui::press(Qt::Key_Escape);
        QVERIFY(s.window->isVisible());
    }

    void zooming()
    {
        const Shown s;
        QStringList choices;
        for (const QAction *action : gui::find<QToolButton>(*s.window, u"cmdZoom"_s).menu()->actions())
            choices << action->text();
        QCOMPARE(choices.join(u'|'), u"Whole &Page|Page &Width|&Two Pages|Thumb&nail"_s);
        s.pages->goToPage(4);
        for (const auto &[name, zoom] : {std::pair{u"mnuZoom_1"_s, Zoom::WholePage},
                                         {u"mnuZoom_3"_s, Zoom::TwoPages},
                                         {u"mnuZoom_4"_s, Zoom::Thumbnail},
                                         {u"mnuZoom_2"_s, Zoom::PageWidth}}) {
            gui::find<QAction>(*s.window, name).trigger();
            QCOMPARE(s.pages->zoom(), zoom);
            QCOMPARE(s.page(), 5);
        }
        // The place under the pointer stays there.
        const QPoint pointer(300, 200);
        const QImage before = s.pages->viewport()->grab(QRect(pointer - QPoint(2, 2), QSize(5, 5))).toImage();
        const double scale = s.pages->relativeScale();
        s.wheel(2, Qt::ControlModifier, pointer);
        QCOMPARE(s.pages->zoom(), Zoom::Free);
        QVERIFY(s.pages->relativeScale() > scale * 1.4);
        s.wheel(-2, Qt::ControlModifier, pointer);
        QVERIFY(qAbs(s.pages->relativeScale() - scale) < 0.001);
        const QImage after = s.pages->viewport()->grab(QRect(pointer - QPoint(2, 2), QSize(5, 5))).toImage();
        QCOMPARE(after, before);
        QCOMPARE(s.page(), 5);
    }

    void turnedPaperKeepsThePlace()
    {
        for (const QString &zoom : {u"mnuZoom_1"_s, u"mnuZoom_2"_s, u"mnuZoom_4"_s}) {
            Shown s;
            const ReportDocument &document = s.output.document();
            gui::find<QAction>(*s.window, zoom).trigger();
            s.pages->goToPage(6);
            qsizetype row = document.firstRow(6);
            if (s.pages->zoom() == Zoom::PageWidth) {
                QScrollBar *bar = s.pages->verticalScrollBar();
                bar->setValue(bar->value() + 6 * bar->singleStep());
                row = s.pages->firstVisible().row;
                QVERIFY(row > document.firstRow(s.page() - 1));
            }
            const qsizetype upright = s.page();
            for (const bool landscape : {true, false, true}) {
                s.click(u"cmdLandscape"_s);
                QCOMPARE(s.page() - 1, document.pageOf({row, 0, 0}));
                QCOMPARE(s.page() == upright, !landscape);
            }
        }
    }

    void keysTurnPagesFromAnywhere()
    {
        const Shown s;
        s.pages->goToPage(3);
        QVERIFY(gui::focusByTab(gui::find<QSpinBox>(*s.window, u"txtPage"_s)));
        gui::find<QAction>(*s.window, u"mnuZoom_1"_s).trigger();
        QVERIFY(gui::focusByTab(gui::find<QSpinBox>(*s.window, u"txtPage"_s)));
        gui::press(Qt::Key_PageDown);
        QCOMPARE(s.page(), 5);
        gui::press(Qt::Key_PageUp);
        QCOMPARE(s.page(), 4);
        // The focus leaves a button that is of no use on the first page.
        QVERIFY(gui::focusByTab(gui::find<QToolButton>(*s.window, u"cmdFirstPage"_s)));
        gui::press(Qt::Key_Space);
        QCOMPARE(s.page(), 1);
        QVERIFY(s.pages->hasFocus());
    }

    void findingText()
    {
        Shown s;
        gui::press(Qt::Key_F, Qt::ControlModifier);
        gui::type(u"RARE"_s);
        const auto foundPage = [&](int row) {
            return s.pages->currentPage() == s.output.document().pageOf({row, 0, 0});
        };
        gui::press(Qt::Key_Return);
        QVERIFY(foundPage(50));
        gui::press(Qt::Key_F3);
        QVERIFY(foundPage(150));
        gui::press(Qt::Key_Return, Qt::ShiftModifier);
        QVERIFY(foundPage(50));
        const QLabel &note = gui::find<QLabel>(*s.window, u"lblFound"_s);
        s.click(u"cmdFindPrevious"_s);
        QVERIFY(foundPage(450));
        QCOMPARE(note.text(), u"Continued from the last page"_s);
        s.click(u"cmdFirstPage"_s);
        s.click(u"cmdFindNext"_s);
        QVERIFY(foundPage(50));
        QCOMPARE(note.text(), QString());
        gui::type(u"r"_s);
        gui::press(Qt::Key_Return);
        QCOMPARE(note.text(), u"Not found"_s);
        gui::press(Qt::Key_Escape);
        QVERIFY(s.window->isVisible());
        QVERIFY(s.pages->hasFocus());
    }

    void savingAsPdf()
    {
        // New, kept, replaced, cancelled halfway.
        for (const auto &[exists, replace, cancelAt, written] : {std::tuple(false, false, 0, true),
                                                                 {true, false, 0, false},
                                                                 {true, true, 0, true},
                                                                 {true, true, 3, false}}) {
            QTemporaryDir folder;
            const QString path = folder.filePath(u"list.pdf"_s);
            if (exists) {
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
            }
            Shown s;
            s.click(u"cmdLandscape"_s);
            s.desktop.answerSaveFile(u"Coin List.pdf"_s, pdfFilter, path);
            if (exists) {
                s.desktop.answerYesNo(
                    u"The file '%1' already exists.  Do you wish to replace it?"_s.arg(path),
                    u"File Exists"_s, replace ? Desktop::Answer::Yes : Desktop::Answer::No);
            }
            s.desktop.cancelProgressAt(cancelAt);
            s.click(u"cmdSavePdf"_s);
            QCOMPARE(s.desktop.problems(), QStringList());
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"list.pdf"_s));
            if (written) {
                QCOMPARE(pagesInPdf(contents(path)), s.count());
                QVERIFY(contents(path).contains("/MediaBox [0 0 792"));
            } else {
                QCOMPARE(contents(path), QByteArray("old"));
            }
        }
    }

    void unwritableFileIsNamed()
    {
        Shown s;
        s.desktop.answerSaveFile(u"Coin List.pdf"_s, pdfFilter, u"/no/such/folder/list.pdf"_s);
        s.desktop.expectMessage(
            u"The report could not be saved.  Path not found: '/no/such/folder/list.pdf'"_s);
        s.click(u"cmdSavePdf"_s);
        QCOMPARE(s.desktop.problems(), QStringList());
    }

    void collectionIsNoTarget()
    {
        // The files that are there, in this letter case, and those that may come.
        const QStringList present{u"COIN.MDB"_s, u"Coindb.bak"_s, u"rptspec.mdb"_s, u"coin.hlp"_s,
                                  u"images/00000001.jpg"_s};
        const QStringList absent{u"COIN.MDB-journal"_s,     u"coin.mdb"_s,
                                 u"CoinNew.mdb"_s,          u"coin-old-2.mdb"_s,
                                 u"coin-damaged.mdb-wal"_s, u"images/00000002.png"_s};
        QTemporaryDir folder;
        Shown s;
        s.shared.AppFolder = folder.path() + u'/';
        s.shared.DatabasePath = folder.filePath(u"COIN.MDB"_s);
        s.shared.HelpFilePath = folder.filePath(u"coin.hlp"_s);
        QVERIFY(QDir(folder.path()).mkdir(u"images"_s));
        for (const QString &name : present + absent) {
            const QString path = folder.filePath(name);
            const bool exists = present.contains(name);
            QFile file(path);
            QVERIFY(!exists || (file.open(QIODevice::WriteOnly) && file.write("dear") && file.flush()));

            const QString roundabout = folder.filePath(u"images/../"_s + name);
            s.desktop.answerSaveFile(u"Coin List.pdf"_s, pdfFilter, roundabout);
            s.desktop.expectMessage(
                u"The report could not be saved.  '%1' belongs to the collection."_s.arg(roundabout));
            s.click(u"cmdSavePdf"_s);
            QCOMPARE(s.desktop.problems(), QStringList());
            QCOMPARE(file.exists(), exists);
            QVERIFY(!exists || contents(path) == "dear");
        }
    }

    void printing()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"printed.pdf"_s);
        ScriptedDesktop desktop;
        ReportDocument document;
        fill(document, 500);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printReport(document, 0, printer, desktop);
        QCOMPARE(pagesInPdf(contents(path)), document.pageCount());
        QCOMPARE(desktop.progressLooks(), int(document.pageCount()));
        // What is cancelled is not printed to the end.
        desktop.cancelProgressAt(desktop.progressLooks() + 3);
        printReport(document, 0, printer, desktop);
        QVERIFY(pagesInPdf(contents(path)) < document.pageCount());
        printer.setOutputFileName(u"/no/such/folder/printed.pdf"_s);
        desktop.expectMessage(u"The report could not be printed."_s);
        printReport(document, 0, printer, desktop);
        QCOMPARE(desktop.problems(), QStringList());
    }

    void pagesOfAPrintJob()
    {
        using Pages = std::vector<qsizetype>;
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        QCOMPARE(pagesToPrint(printer, 3, 1), (Pages{0, 1, 2}));
        printer.setPrintRange(QPrinter::CurrentPage);
        QCOMPARE(pagesToPrint(printer, 3, 1), Pages{1});
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(u"2-3,5-9"_s));
        QCOMPARE(pagesToPrint(printer, 6, 0), (Pages{1, 2, 4, 5}));
        printer.setPageRanges(QPageRanges::fromString(u"2-3"_s));
        printer.setCopyCount(2);
        printer.setCollateCopies(true);
        QCOMPARE(pagesToPrint(printer, 6, 0), (Pages{1, 2, 1, 2}));
        printer.setCollateCopies(false);
        printer.setPageOrder(QPrinter::LastPageFirst);
        QCOMPARE(pagesToPrint(printer, 6, 0), (Pages{2, 2, 1, 1}));
    }

    void nextReportAndNextWindow()
    {
        Shown s;
        s.pages->goToPage(5);
        ReportDocument next;
        fill(next, 10);
        s.output.document().take(next);
        s.output.show();
        QCOMPARE(s.count(), 1);
        QCOMPARE(s.page(), 1);
        const QPointer<QWidget> first = s.window;
        QVERIFY(gui::click(gui::find<QPushButton>(*s.window, u"cmdOk"_s)));
        QCOMPARE(s.output.document().rowCount(), 0);
        QVERIFY(gui::waitUntil([&] { return !first; }, "the window is gone"));
    }
};

QTEST_MAIN(ReportPreviewsTest)
#include "ReportPreviews.moc"
