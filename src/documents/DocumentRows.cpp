// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/DocumentRows.h"

namespace obelmark {

QList<QStringView> cellsOf(QStringView text)
{
    return text.split(cellSeparator);
}

void DocumentRows::add(QStringView text, Look look)
{
    if (m_size % rowsInBlock == 0) {
        if (!m_blocks.empty())
            m_blocks.back()->text.shrink_to_fit();
        m_blocks.push_back(std::make_unique<Block>());
        m_blocks.back()->records.reserve(m_size == 0 ? 0 : rowsInBlock);
    }
    Block &last = *m_blocks.back();
    last.records.push_back({quint32(last.text.size()), quint32(look.format), quint32(look.lines)});
    const QByteArray bytes = text.toUtf8();
    last.text.append(bytes.constData(), std::size_t(bytes.size()));
    ++m_size;
}

QString DocumentRows::text(qsizetype row) const
{
    const Block &home = block(row);
    const auto place = std::size_t(row % rowsInBlock);
    const std::size_t from = home.records[place].offset;
    const std::size_t to =
        place + 1 < home.records.size() ? home.records[place + 1].offset : home.text.size();
    return QString::fromUtf8(home.text.data() + from, qsizetype(to - from));
}

void DocumentRows::setLines(qsizetype row, int lines)
{
    m_blocks[std::size_t(row / rowsInBlock)]->records[std::size_t(row % rowsInBlock)].lines = quint32(lines);
}

void DocumentRows::clear()
{
    m_blocks.clear();
    m_size = 0;
}

} // namespace obelmark
