// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QRectF>
#include <QRgb>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QPainter;

namespace obelmark {

struct PageSetup;

/// The heading row that stands on top of every page, in the table grammar.
struct RepeatedHeading
{
    QString format;
    QString row;
    QRgb shade = 0xFFC8C8C8; ///< its background
};

/// What stands around a report's rows.
struct ReportPageSetup
{
    QString header; ///< left, centre and right part separated by "|"; "%d" is the page number
    QString footer; ///< the same for the foot of the page; may be empty
    bool landscape = false;
    std::optional<RepeatedHeading> heading;
};

/// A place in the text of a report's rows: a letter of a cell of a row, all counted from 0.
struct ReportMatch
{
    qsizetype row;
    qsizetype cell;
    qsizetype at;

    auto operator<=>(const ReportMatch &) const = default;
};
/// A line of a report's rows that is found again when the rows have other lines.
struct ReportPlace
{
    qsizetype row;
    double part; ///< of the row's lines, those above

    auto operator<=>(const ReportPlace &) const = default;
};
/// Where a line stands.
struct PagePosition
{
    qsizetype page = 0;
    double top = 0; ///< in twips from the paper's top
};

enum class SearchDirection { Forwards, Backwards };

/// A paginated report. Its pages are broken as rows are added, so that those which are full can be painted
/// long before the last row is there; rows are laid out again whenever they are painted. A row stays on one
/// page unless it is taller than that.
///
/// Pages are counted from 0. The paper is the usual one of the user's country until setPage() says otherwise.
class ReportDocument
{
public:
    ReportDocument();
    ~ReportDocument();
    ReportDocument(const ReportDocument &) = delete;
    ReportDocument &operator=(const ReportDocument &) = delete;

    /// Empties the document and begins a new one.
    void start(const ReportPageSetup &setup);
    /// Adds a table in the table grammar: column widths in twips, rows ended by ";", cells separated by "|".
    /// A table that is wider than the page gets narrower columns; cells beyond its columns get columns of
    /// their own. \throws std::length_error for more than 4,096 different formats
    void addTable(QStringView format, QStringView body);
    /// Adds a row by its cells, whatever signs are in them. \throws as addTable()
    void addRow(QStringView format, const QList<QStringView> &cells);
    void end();
    /// Takes over the report of another document, which is left with the one that was here.
    void take(ReportDocument &finished);

    enum class Change { NewReport, Pages };
    /// Called whenever pages are no longer what they were: another report at start() and take(), other pages
    /// at end() and setPage().
    void onChange(std::function<void(Change)> handler);

    /// 0 before the first start().
    qsizetype pageCount() const;
    qsizetype rowCount() const;
    /// The first row that is on the page, wholly or in part.
    qsizetype firstRow(qsizetype page) const;
    /// The first line on the page that reaches below \a top, in twips from the paper's top.
    ReportPlace placeAt(qsizetype page, double top) const;
    PagePosition positionOf(const ReportPlace &place) const;
    const PageSetup &page() const;
    /// Breaks the pages for another paper.
    void setPage(const PageSetup &page);
    /// The centre part of the page header.
    QString title() const;

    /// What stands on a page, for those who hear it: the title, the heading and the rows, a line for each,
    /// their cells separated by tabs.
    QString pageText(qsizetype page) const;
    /// Paints in twips from the paper's top left corner, black on what is there.
    void paintPage(QPainter &painter, qsizetype page) const;

    /// The nearest place, behind or before \a from, where that text stands in a cell; letter case does not
    /// matter.
    std::optional<ReportMatch> find(const QString &text, const ReportMatch &from,
                                    SearchDirection direction) const;
    qsizetype pageOf(const ReportMatch &match) const;
    /// Every place of a text on a page, in twips; one that wraps has a rectangle on each line.
    struct MatchRect
    {
        ReportMatch match;
        QRectF rect;
    };
    QList<MatchRect> matchRects(qsizetype page, const QString &text) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace obelmark
