// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <memory>
#include <string>
#include <vector>

namespace obelmark {

/// What stands between the cells of a row's text.
inline constexpr QChar cellSeparator = u'\x1f';

/// The cells of a row's text.
QList<QStringView> cellsOf(QStringView text);

/// The rows of a report: their texts as UTF-8, and 8 bytes for each about its look.
class DocumentRows
{
public:
    /// What the page breaking needs to know about a row.
    struct Look
    {
        int format;
        int lines;
    };
    static constexpr int mostFormats = 1 << 12;
    static constexpr int mostLines = (1 << 20) - 1;

    qsizetype size() const { return m_size; }
    /// \a look: within the limits above
    void add(QStringView text, Look look);
    QString text(qsizetype row) const;
    Look look(qsizetype row) const
    {
        const Record &record = block(row).records[std::size_t(row % rowsInBlock)];
        return {int(record.format), int(record.lines)};
    }
    void setLines(qsizetype row, int lines);
    void clear();

private:
    struct Record
    {
        quint32 offset;
        quint32 format : 12;
        quint32 lines : 20;
    };
    /// Rows are kept in blocks, so that adding one moves no more than a block.
    static constexpr qsizetype rowsInBlock = 4096;
    struct Block
    {
        std::string text;
        std::vector<Record> records;
    };

    const Block &block(qsizetype row) const { return *m_blocks[std::size_t(row / rowsInBlock)]; }

    std::vector<std::unique_ptr<Block>> m_blocks;
    qsizetype m_size = 0;
};

} // namespace obelmark
