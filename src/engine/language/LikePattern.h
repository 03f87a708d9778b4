// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace obelmark {

/// A pattern of "like", made ready for many values: "*" any run, "?" one character, "#" one digit, "[a-z]"
/// one of, "[!a-z]" none of; in brackets "*", "?", "#" and "[" stand for themselves, as does a "[" that is
/// never closed. Letter case and accents do not matter; a sign written as one ("½", "ﬁ") is one character.
///
/// Takes time proportional to value length times pattern length at worst.
class LikePattern
{
public:
    explicit LikePattern(std::string_view utf8);

    bool matches(std::string_view utf8) const;

private:
    enum class Kind : quint8 { Letter, AnyOne, Digit, List };
    struct Element
    {
        Kind kind;
        quint32 value; ///< the letter, or which list
    };
    struct List
    {
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges;

        bool contains(char32_t character) const;
    };
    using Segment = std::vector<Element>;

    /// Reads the list behind a "[" and answers where it ends: the index behind its "]", or 0 if it has none.
    size_t readList(const std::u32string &pattern, size_t start);
    template<class Text>
    bool matchesText(const Text &text) const;
    /// Where the leftmost match of the segment from \a position on ends.
    template<class Text>
    size_t findSegment(const Segment &segment, const Text &text, size_t position) const;
    template<class Text>
    bool matchesElement(const Element &element, const Text &text, size_t position) const;
    template<class Text>
    size_t matchEnd(const Segment &segment, const Text &text, size_t position) const;

    /// What stands between the asterisks.
    std::vector<Segment> m_segments;
    std::vector<List> m_lists;
    mutable std::vector<char32_t> m_folded; ///< the value at hand; kept for its memory
};

} // namespace obelmark
