// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/ReportDocument.h"

#include "documents/PagePainter.h"
#include "documents/ReportLayout.h"
#include "documents/ReportSearch.h"
#include "runtime/RegionalSettings.h"

namespace obelmark {

struct ReportDocument::Private
{
    void changed(Change change) const
    {
        if (changeHandler)
            changeHandler(change);
    }

    std::unique_ptr<ReportLayout> layout =
        std::make_unique<ReportLayout>(PageSetup{usualPaper(RegionalSettings::system().locale())});
    std::function<void(Change)> changeHandler;
};

ReportDocument::ReportDocument() : d(std::make_unique<Private>()) {}

ReportDocument::~ReportDocument() = default;

void ReportDocument::start(const ReportPageSetup &setup)
{
    d->layout->start(setup);
    d->changed(Change::NewReport);
}

void ReportDocument::addTable(QStringView format, QStringView body)
{
    d->layout->addTable(format, body);
}

void ReportDocument::addRow(QStringView format, const QList<QStringView> &cells)
{
    d->layout->addRow(format, cells);
}

void ReportDocument::end()
{
    d->changed(Change::Pages);
}

void ReportDocument::take(ReportDocument &finished)
{
    d->layout.swap(finished.d->layout);
    d->changed(Change::NewReport);
}

void ReportDocument::onChange(std::function<void(Change)> handler)
{
    d->changeHandler = std::move(handler);
}

qsizetype ReportDocument::pageCount() const
{
    return d->layout->pageCount();
}

qsizetype ReportDocument::rowCount() const
{
    return d->layout->rows().size();
}

qsizetype ReportDocument::firstRow(qsizetype page) const
{
    return d->layout->pageStart(page).row;
}

ReportPlace ReportDocument::placeAt(qsizetype page, double top) const
{
    return d->layout->placeAt(page, top);
}

PagePosition ReportDocument::positionOf(const ReportPlace &place) const
{
    return d->layout->positionOf(place);
}

const PageSetup &ReportDocument::page() const
{
    return d->layout->page();
}

void ReportDocument::setPage(const PageSetup &page)
{
    if (page == d->layout->page())
        return;
    d->layout->setPage(page);
    d->changed(Change::Pages);
}

QString ReportDocument::title() const
{
    const QStringList parts = d->layout->headerParts().split(u'|');
    return parts.value(1).trimmed();
}

QString ReportDocument::pageText(qsizetype page) const
{
    QStringList lines(title());
    const auto addRow = [&lines](const ReportLayout::RowPart &row) {
        QStringList cells;
        for (const QStringView cell : row.cells())
            cells += cell.toString();
        lines += cells.join(u'\t');
    };
    if (d->layout->heading().lineCount > 0)
        addRow(d->layout->heading());
    d->layout->forEachRow(page, 0, this->page().size().height(), addRow);
    return lines.join(u'\n');
}

void ReportDocument::paintPage(QPainter &painter, qsizetype page) const
{
    obelmark::paintPage(painter, *d->layout, page);
}

std::optional<ReportMatch> ReportDocument::find(const QString &text, const ReportMatch &from,
                                                SearchDirection direction) const
{
    return findText(*d->layout, text, from, direction);
}

qsizetype ReportDocument::pageOf(const ReportMatch &match) const
{
    return d->layout->pageOf(match.row, lineOf(*d->layout, match));
}

QList<ReportDocument::MatchRect> ReportDocument::matchRects(qsizetype page, const QString &text) const
{
    return obelmark::matchRects(*d->layout, page, text);
}

} // namespace obelmark
