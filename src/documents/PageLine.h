// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <array>

class QPainter;

namespace obelmark {

class ReportFont;

/// The header or the footer of a report's pages: a left, a centre and a right part. The centre keeps clear
/// of both others; where it is too long for one line it takes up to three.
class PageLine
{
public:
    /// \a parts are separated by "|"; of more than three, those between the first and the last are the
    /// centre. \a width is the room between the page's margins, in twips.
    PageLine(const ReportFont &font, const QString &parts, double width);

    /// 0 when there is nothing to show.
    double height() const;
    /// \a page, counted from 1, stands in place of "%d".
    void paint(QPainter &painter, QPointF topLeft, qsizetype page) const;

private:
    enum Part { Left, Centre, Right };

    double widthOf(const QString &text) const;
    void wrapCentre(double room);

    const ReportFont *m_font;
    double m_width;
    double m_sideRoom;
    std::array<QString, 3> m_parts;
    QStringList m_centreLines;
};

} // namespace obelmark
