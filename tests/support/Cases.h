// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtTest>
#include <array>

/// Tables of cases that are text, in tests/<folder>/data/<Subject>.txt: a section for each test function, a
/// line for each case, which names it. Its cells stand between bars; blanks around them count for nothing.
/// Written as in C++: \\ \n \r \t \uXXXX; also \| and, for a blank at the end of a cell, \s. A cell of \0
/// alone is a null text. Lines that begin with # are remarks.
namespace obelmark::cases {

/// The cells of a line.
inline QStringList cellsOf(const QString &line)
{
    QStringList cells{QString()};
    qsizetype fixed = 0; // so much of the last cell is no margin
    const auto end = [&] {
        while (cells.last().size() > fixed && cells.last().back() == u' ')
            cells.last().chop(1);
        if (cells.last().isNull())
            cells.last() = QStringLiteral("");
        else if (cells.last() == QChar(0))
            cells.last() = QString();
    };
    for (qsizetype i = 0; i < line.size(); ++i) {
        QChar c = line[i];
        if (c == u'|') {
            end();
            cells << QString();
            fixed = 0;
            continue;
        }
        if (c == u' ' && cells.last().isEmpty())
            continue;
        if (c == u'\\') {
            c = line[++i];
            const qsizetype control = QStringView(u"0nrts").indexOf(c);
            if (c == u'u')
                c = QChar(line.sliced(i + 1, 4).toUShort(nullptr, 16)), i += 4;
            else if (control >= 0)
                c = u"\0\n\r\t "[control];
            fixed = cells.last().size() + 1;
        }
        cells.last() += c;
    }
    end();
    return cells;
}

/// The lines of a section of a file.
inline QStringList linesOf(const QString &subject, const QString &section)
{
    QFile file(QStringLiteral(OBELMARK_TEST_DATA "/%1.txt").arg(subject));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(file.fileName()));
    QStringList lines;
    bool inside = false;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'[') && line.endsWith(u']'))
            inside = line == u'[' + section + u']';
        else if (inside && !line.startsWith(u'#'))
            lines << line;
    }
    if (lines.isEmpty())
        qFatal("%s has no section %s", qPrintable(file.fileName()), qPrintable(section));
    return lines;
}

/// In f_data(): a row for each line of the section "f".
inline void add()
{
    QTest::addColumn<QStringList>("cells");
    for (const QString &line : linesOf(QString::fromLatin1(OBELMARK_TEST_SUBJECT),
                                       QString::fromLatin1(QTest::currentTestFunction())))
        QTest::newRow(qPrintable(line.simplified())) << cellsOf(line);
}

/// In f(): the cells of its row; those that the line lacks are empty.
template<size_t Count>
std::array<QString, Count> row()
{
    QFETCH(QStringList, cells);
    if (cells.size() > qsizetype(Count))
        qFatal("%s: %lld cells", QTest::currentDataTag(), cells.size());
    std::array<QString, Count> result;
    result.fill(QStringLiteral(""));
    std::copy(cells.begin(), cells.end(), result.begin());
    return result;
}

} // namespace obelmark::cases
