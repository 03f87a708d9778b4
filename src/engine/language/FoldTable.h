// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <array>
#include <memory>
#include <vector>

namespace obelmark {

/// What each Unicode character becomes in a form in which texts are compared. Blocks of 256 characters are
/// worked out when one of them is first met.
///
/// Folding character by character equals folding whole texts: the only step that looks at neighbours is the
/// ordering of combining marks, and those are dropped.
class FoldTable
{
public:
    /// No character becomes more characters than this per byte of its UTF-8 form.
    static constexpr size_t mostPerByte = 6;

    /// The form that orders texts: foldText().
    static FoldTable &ofOrder();
    /// The form in which "like" compares: letter case and accents are dropped too, but a sign that is written
    /// as one holds none of those that it could be spelled out with: "½" no "1", "Ⅳ" no "I". Only what is the
    /// same sign in another width or font is as that.
    static FoldTable &ofLike();

    /// Calls \a sink with each character that \a character becomes: none for a combining mark, mostly one,
    /// several for a ligature.
    template<class Sink>
    void fold(char32_t character, Sink &&sink)
    {
        if (character > lastCharacter) {
            sink(character);
            return;
        }
        const Entry entry = blockOf(character)[character % blockSize];
        if (entry.length == 1) {
            sink(char32_t(entry.payload));
            return;
        }
        for (quint32 i = 0; i < entry.length; ++i)
            sink(m_expansions[entry.payload + i]);
    }

private:
    using Decompose = QString (*)(const QString &text);
    explicit FoldTable(Decompose decompose) : m_decompose(decompose) {}

    static constexpr char32_t lastCharacter = 0x10ffff;
    static constexpr char32_t blockSize = 256;
    struct Entry
    {
        quint32 length : 8;
        quint32 payload : 24; ///< the one character, or where several begin in the expansions
    };
    using Block = std::array<Entry, blockSize>;

    const Block &blockOf(char32_t character)
    {
        std::unique_ptr<Block> &block = m_blocks[character / blockSize];
        if (!block)
            block = makeBlock(character / blockSize * blockSize);
        return *block;
    }
    std::unique_ptr<Block> makeBlock(char32_t first);

    QString foldOnce(const QString &text) const;
    QString foldFully(QString text) const;

    Decompose m_decompose;
    std::array<std::unique_ptr<Block>, lastCharacter / blockSize + 1> m_blocks;
    std::vector<char32_t> m_expansions;
};

} // namespace obelmark
