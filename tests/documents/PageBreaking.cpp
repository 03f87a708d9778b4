// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/PageArrangement.h"
#include "documents/PageBreaker.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include "documents/ReportFont.h"
#include "documents/TableGrammar.h"
#include "support/Cases.h"

#include <QtGui>
#include <QtTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

const QString fiveColumns = u"4320|1440|>1440|>1340|>1340;"_s;
const PageSetup letter{QPageSize(QPageSize::Letter)};

ReportPageSetup headed()
{
    return {u"1/5/2005|Coin List|Page %d"_s,
            {},
            false,
            RepeatedHeading{fiveColumns, u"Description|Cat #|Face|Year|Quantity;"_s}};
}

/// Every page as the list of places where \a text stands, by row.
QList<QList<qsizetype>> rowsWith(const ReportDocument &document, const QString &text)
{
    QList<QList<qsizetype>> pages;
    for (qsizetype page = 0; page < document.pageCount(); ++page) {
        pages.append(QList<qsizetype>());
        for (const auto &found : document.matchRects(page, text))
            pages.last().append(found.match.row);
    }
    return pages;
}

QImage painted(const ReportDocument &document, qsizetype page)
{
    QImage image((document.page().size() / 10).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(0.1, 0.1);
    document.paintPage(painter, page);
    return image;
}

/// The part of a picture that is not white.
QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

class PageBreakingTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString family = QFontInfo(QFont(u"Times New Roman"_s)).family();
        if (family != "Liberation Serif"_L1 && family != "Times New Roman"_L1)
            QSKIP("The font that pages are laid out for is not installed");
    }

    void tableGrammar()
    {
        QCOMPARE(parseTableFormat(u"2160|>1123.2| >x |0;"),
                 (QList<TableColumn>{{2160}, {1123.2, true}, {1440, true}, {1440}}));
        QCOMPARE(parseTableFormat(u";"), QList<TableColumn>());
        QCOMPARE(splitRows(u"a|b;;c; d"), (QList<QStringView>{u"a|b", u"", u"c", u" d"}));
        QCOMPARE(splitRows(u"a;"), QList<QStringView>{u"a"});
        QCOMPARE(splitCells(u"|a||b"), (QList<QStringView>{u"", u"a", u"", u"b"}));
        QCOMPARE(splitCells(u""), QList<QStringView>{u""});
    }

    // Ten lines fit on a page, nine with the padding of a row.
    void rowsAreDealtOut_data() { cases::add(); }
    void rowsAreDealtOut()
    {
        const auto [name, lines, starts] = cases::row<3>();
        PageBreaker breaker;
        breaker.start({.height = 100, .lineHeight = 10, .padding = 10});
        for (const QString &count : lines.split(u' ', Qt::SkipEmptyParts))
            breaker.add(count.toInt());
        QStringList found;
        for (qsizetype page = 0; page < breaker.pageCount(); ++page) {
            const auto start = breaker.pageStart(page);
            found << u"%1.%2"_s.arg(start.row).arg(start.line);
            QCOMPARE(breaker.pageOf(start), page);
        }
        QCOMPARE(found.join(u' '), starts);
    }

    void plainLettersAreAsWideAsLaidOut()
    {
        const ReportFont font(11.25, QFont::Normal);
        for (const QString &text : {u"Two AVAtars: ½ Taler, fi 1'000.50 €"_s, u"Ελλάς Россия"_s}) {
            QTextLayout layout(text, font.font());
            layout.beginLayout();
            QTextLine line = layout.createLine();
            line.setLineWidth(100'000);
            layout.endLayout();
            QVERIFY(qAbs(font.plainWidth(text).value() - line.naturalTextWidth()) < 1);
        }
        for (const QString &text : {u"e\u0301"_s, u"بسم"_s, u"ไทย"_s, u"\U0001F600"_s, u"a\nb"_s, u"中"_s})
            QVERIFY2(!font.plainWidth(text), qPrintable(text));
    }

    void everyPageHasItsHeading()
    {
        ReportDocument document;
        document.setPage(letter);
        document.start(headed());
        for (int i = 0; i < 120; ++i)
            document.addTable(fiveColumns, u"Coin %1|KM-1||1852|1;"_s.arg(i));
        document.addTable(u"3560|>7040;", u"Totals|120;"_s);
        document.end();
        QCOMPARE(document.pageCount(), 3);
        const QSize margins(int(pageMarginX / 10), int(pageMarginY / 10));
        for (qsizetype page = 0; page < 3; ++page) {
            const QImage image = painted(document, page);
            QCOMPARE(image.pixel(70, 120), qRgb(200, 200, 200));
            QVERIFY(
                image.rect()
                    .adjusted(margins.width() - 1, margins.height(), -margins.width() + 1, -margins.height())
                    .contains(inkOf(image)));
        }
        // Each row once, in order.
        QList<qsizetype> all;
        for (const auto &rows : rowsWith(document, u"coin"_s))
            all += rows;
        QCOMPARE(all.size(), 120);
        QVERIFY(std::ranges::is_sorted(all));
        QCOMPARE(rowsWith(document, u"totals"_s), (QList<QList<qsizetype>>{{}, {}, {120}}));
    }

    void nothingLeavesThePage_data() { cases::add(); }
    void nothingLeavesThePage()
    {
        const auto [name, paper, format, row, text, edgeOfText] = cases::row<6>();
        const int right = edgeOfText.toInt();
        ReportDocument document;
        document.setPage({QPageSize(paper == u"A4" ? QPageSize::A4 : QPageSize::Letter)});
        document.start({});
        document.addTable(format, row);
        const auto found = document.matchRects(0, text);
        QVERIFY(!found.isEmpty());
        for (const auto &place : found) {
            const double edge = place.rect.right() - pageMarginX;
            QVERIFY2(edge <= (right > 0 ? right : document.page().size().width() - 2 * pageMarginX) + 1,
                     qPrintable(QString::number(edge)));
        }
        if (row == u"a|$9;"_s)
            QVERIFY(qAbs(found[0].rect.right() - pageMarginX - right) < 1);
    }

    void amountIsSqueezedNotBroken_data() { cases::add(); }
    void amountIsSqueezedNotBroken()
    {
        const auto [name, text, twips, kind] = cases::row<4>();
        const int width = twips.toInt();
        const bool squeezed = kind == u"squeezed";
        ReportDocument document;
        document.setPage(letter);
        document.start({});
        document.addTable(u"%1|4000;"_s.arg(width), text + u"|;x;"_s);
        const auto rows = document.matchRects(0, u"x"_s);
        const double lineHeight = rows[0].rect.height();
        QCOMPARE(rows[0].rect.top() < pageMarginY + 2 * lineHeight, squeezed);
        if (!squeezed)
            return;
        // From edge to edge of the column's text, and ink nowhere else.
        const QRectF all = document.matchRects(0, text).constFirst().rect;
        QVERIFY(qAbs(all.left() - pageMarginX - 60) < 2 && qAbs(all.width() - width + 120) < 3);
        const QRectF end = document.matchRects(0, text.last(3)).constFirst().rect;
        QVERIFY(qAbs(end.right() - all.right()) < 2 && end.width() < all.width() / 2);
        const QRect ink = inkOf(painted(document, 0).copy(0, 0, 400, int(all.bottom() / 10)));
        QVERIFY(ink.left() >= int(all.left() / 10) - 1 && ink.right() <= int(all.right() / 10) + 1);
        QVERIFY(ink.width() > int(all.width() / 10) - 6);
    }

    void turnedPaperIsBrokenAsIfItHadLainSo()
    {
        // The wide table is narrowed upright, so that its rows have other lines then.
        const auto fill = [](ReportDocument &document) {
            for (int i = 0; i < 400; ++i) {
                document.addTable(
                    i % 3 ? fiveColumns : u"6000|8000;"_s,
                    u"Half dollar of the year %1|%2;"_s.arg(i).arg(u"Notes "_s.repeated(i % 60)));
            }
        };
        ReportPageSetup setup = headed();
        ReportDocument turned, fresh;
        turned.setPage(letter);
        fresh.setPage(letter);
        turned.start(setup);
        fill(turned);
        const auto upright = rowsWith(turned, u"dollar"_s);
        turned.setPage({letter.paper, true});
        setup.landscape = true;
        fresh.start(setup);
        fill(fresh);
        QCOMPARE(rowsWith(turned, u"dollar"_s), rowsWith(fresh, u"dollar"_s));
        QVERIFY(fresh.pageCount() > upright.size());
        turned.setPage(letter);
        QCOMPARE(rowsWith(turned, u"dollar"_s), upright);
    }

    void tallRowIsDividedByLines()
    {
        ReportDocument document;
        document.start(headed());
        QString notes;
        for (int i = 1; i <= 150; ++i)
            notes += u"Line %1.\r\n"_s.arg(i);
        document.addTable(u"5000;", notes + u';');
        document.addTable(u"5000;", u"Next;");
        QStringList lines;
        for (qsizetype page = 0; page < document.pageCount(); ++page) {
            double above = 0;
            for (const auto &found : document.matchRects(page, u"line"_s)) {
                QVERIFY(found.rect.top() > above);
                QVERIFY(found.rect.bottom() <= document.page().size().height() - pageMarginY);
                QCOMPARE(document.pageOf(found.match), page);
                above = found.rect.top();
                lines << QString::number(found.match.at);
            }
        }
        QCOMPARE(lines.size(), 150);
        QCOMPARE(lines.removeDuplicates(), 0);
        QCOMPARE(document.pageCount(), 3);
        QCOMPARE(document.matchRects(2, u"next"_s).size(), 1);
    }

    void longTitleKeepsClearOfPageNumber()
    {
        ReportDocument document;
        document.setPage(letter);
        ReportPageSetup setup = headed();
        setup.header = u"12/28/2005|%1|Page %d"_s.arg(u"A title of many words "_s.repeated(20));
        document.start(setup);
        const QImage image = painted(document, 0);
        // Beside the date is white paper.
        const double date = ReportFont(14.25, QFont::Bold).plainWidth(u"12/28/2005").value();
        QCOMPARE(inkOf(image.copy(int((pageMarginX + date) / 10) + 2, 60, 15, 100)), QRect());
        QVERIFY(inkOf(image.copy(0, 60, image.width(), 200)).height() > 100);
        QCOMPARE(image.pixel(70, 120), qRgb(255, 255, 255));
        QCOMPARE(document.title(), u"A title of many words "_s.repeated(20).trimmed());
    }

    void findsForwardsAndBackwards()
    {
        ReportDocument document;
        document.start(headed());
        document.addTable(fiveColumns, u"Dime dime|DIME;x;Cent|é dime;"_s);
        QList<ReportMatch> forwards, backwards;
        ReportMatch at{0, -1, -1};
        while (const auto next = document.find(u"dIMe"_s, at, SearchDirection::Forwards))
            forwards.append(at = *next);
        at = {2, 9, 9};
        while (const auto next = document.find(u"dIMe"_s, at, SearchDirection::Backwards))
            backwards.prepend(at = *next);
        QCOMPARE(forwards, (QList<ReportMatch>{{0, 0, 0}, {0, 0, 5}, {0, 1, 0}, {2, 1, 2}}));
        QCOMPARE(backwards, forwards);
        // Signs of the grammar are letters in a row that is added by its cells.
        document.addRow(fiveColumns, {u"a;b|c", u"d"});
        QVERIFY(document.pageText(0).endsWith("\na;b|c\td"_L1));
        QCOMPARE(document.find(u"b|c"_s, {0, -1, -1}, SearchDirection::Forwards), (ReportMatch{3, 0, 2}));
        // Text never reaches from one cell into the next.
        QVERIFY(!document.find(u"dime|D"_s, {0, -1, -1}, SearchDirection::Forwards));
    }

    void arrangementOfPages()
    {
        PageArrangement pages;
        PageArrangement::Terms terms{letter.size(), 7, {1000, 600}, Zoom::WholePage, 1};
        pages.arrange(terms);
        QVERIFY(QRectF(0, 0, 1000, 600).contains(pages.pageRect(0)));
        QVERIFY(pages.pageRect(1).top() > pages.pageRect(0).bottom());
        terms.zoom = Zoom::TwoPages;
        pages.arrange(terms);
        QVERIFY(QRectF(0, 0, 1000, 600).contains(pages.pageRect(1)));
        QCOMPARE(pages.pageRect(1).top(), pages.pageRect(0).top());
        QCOMPARE(pages.firstOfRow(5), 4);
        terms.zoom = Zoom::PageWidth;
        pages.arrange(terms);
        QCOMPARE(pages.pageRect(0).width(), 1000 - 2 * PageArrangement::gap);
        QCOMPARE(pages.mostVisible(QRectF(0, pages.pageRect(2).center().y(), 1000, 600), 0), 2);
        terms.zoom = Zoom::Thumbnail;
        pages.arrange(terms);
        QVERIFY(pages.columns() >= 5);
        QCOMPARE(pages.mostVisible(QRectF(0, 0, 1000, 600), 3), 3);
        QCOMPARE(pages.pageAt(pages.pageRect(6).center()), 6);
    }
};

QTEST_MAIN(PageBreakingTest)
#include "PageBreaking.moc"
