// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/LikePattern.h"
#include "engine/language/FoldTable.h"
#include "engine/language/Utf8.h"
#include <algorithm>
#include <array>
#include <cstring>

namespace obelmark {

namespace {

constexpr size_t noMatch = size_t(-1);

constexpr auto asciiLower = [] {
    std::array<unsigned char, 256> table{};
    for (size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    return table;
}();

bool isAscii(std::string_view text)
{
    constexpr quint64 highBits = 0x8080808080808080;
    const char *p = text.data();
    size_t left = text.size();
    for (; left >= sizeof(quint64); p += sizeof(quint64), left -= sizeof(quint64)) {
        quint64 eight;
        std::memcpy(&eight, p, sizeof eight);
        if (eight & highBits)
            return false;
    }
    return std::all_of(p, p + left, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The value as it lies in the file; ASCII letters fold as they are looked at.
class AsciiText
{
public:
    /// Every element of a pattern takes exactly one character.
    static constexpr bool oneToOne = true;

    explicit AsciiText(std::string_view text) : m_text(text) {}
    size_t size() const { return m_text.size(); }
    char32_t at(size_t i) const { return asciiLower[static_cast<unsigned char>(m_text[i])]; }
    /// The position behind the whole character that the one at \a i is part of.
    size_t next(size_t i) const { return i + 1; }

private:
    std::string_view m_text;
};

/// Set in characters of a folded text that came from the same character as the one before: "?" takes the
/// two that a sharp s becomes as one.
constexpr char32_t sameCharacter = 0x80000000;

class FoldedText
{
public:
    static constexpr bool oneToOne = false;

    FoldedText(const char32_t *text, size_t size) : m_text(text), m_size(size) {}
    size_t size() const { return m_size; }
    char32_t at(size_t i) const { return m_text[i] & ~sameCharacter; }
    size_t next(size_t i) const
    {
        do
            ++i;
        while (i < m_size && (m_text[i] & sameCharacter));
        return i;
    }

private:
    const char32_t *m_text;
    size_t m_size;
};

} // namespace

bool LikePattern::List::contains(char32_t character) const
{
    const bool found = std::any_of(ranges.begin(), ranges.end(), [character](const auto &range) {
        return character >= range.first && character <= range.second;
    });
    return found != negated;
}

LikePattern::LikePattern(std::string_view utf8)
{
    std::u32string pattern;
    for (Utf8Reader reader(utf8); !reader.atEnd();)
        pattern += reader.next();

    m_segments.emplace_back();
    for (size_t i = 0; i < pattern.size();) {
        const char32_t c = pattern[i++];
        if (c == U'*') {
            m_segments.emplace_back();
        } else if (c == U'?') {
            m_segments.back().push_back({Kind::AnyOne, 0});
        } else if (c == U'#') {
            m_segments.back().push_back({Kind::Digit, 0});
        } else if (const size_t end = c == U'[' ? readList(pattern, i) : 0) {
            i = end;
        } else {
            FoldTable::ofLike().fold(c, [this](char32_t folded) {
                m_segments.back().push_back({Kind::Letter, folded});
            });
        }
    }
}

size_t LikePattern::readList(const std::u32string &pattern, size_t start)
{
    const size_t close = pattern.find(U']', start);
    if (close == std::u32string::npos)
        return 0;
    if (close == start) // "[]" stands for nothing
        return close + 1;

    // An expansion is known by its first character.
    const auto folded = [](char32_t c) {
        char32_t first = 0;
        FoldTable::ofLike().fold(c, [&first](char32_t f) { first = first ? first : f; });
        return first;
    };
    List list;
    list.negated = pattern[start] == U'!' && close > start + 1;
    for (size_t i = start + (list.negated ? 1 : 0); i < close; ++i) {
        const char32_t from = folded(pattern[i]);
        const bool isRange = i + 2 < close && pattern[i + 1] == U'-';
        if (isRange)
            i += 2;
        list.ranges.emplace_back(from, isRange ? folded(pattern[i]) : from);
    }
    m_segments.back().push_back({Kind::List, quint32(m_lists.size())});
    m_lists.push_back(std::move(list));
    return close + 1;
}

bool LikePattern::matches(std::string_view utf8) const
{
    if (isAscii(utf8))
        return matchesText(AsciiText(utf8));

    if (m_folded.size() < utf8.size() * FoldTable::mostPerByte)
        m_folded.resize(utf8.size() * FoldTable::mostPerByte);
    FoldTable &table = FoldTable::ofLike();
    char32_t *end = m_folded.data();
    for (Utf8Reader reader(utf8); !reader.atEnd();) {
        const char32_t character = reader.next();
        if (character < 0x80) {
            *end++ = asciiLower[character];
            continue;
        }
        char32_t mark = 0;
        table.fold(character, [&end, &mark](char32_t folded) {
            *end++ = folded | mark;
            mark = sameCharacter;
        });
    }
    return matchesText(FoldedText(m_folded.data(), size_t(end - m_folded.data())));
}

template<class Text>
bool LikePattern::matchesText(const Text &text) const
{
    const size_t first = matchEnd(m_segments.front(), text, 0);
    if (m_segments.size() == 1 || first == noMatch)
        return first == text.size();

    // Each segment at its leftmost place: that leaves the most to the ones behind it.
    size_t position = first;
    for (size_t s = 1; s + 1 < m_segments.size(); ++s) {
        position = findSegment(m_segments[s], text, position);
        if (position == noMatch)
            return false;
    }
    // The last one must reach the end.
    const Segment &last = m_segments.back();
    if (last.empty())
        return true;
    if (text.size() - position < last.size())
        return false;
    const size_t lastStart = text.size() - last.size();
    for (size_t i = Text::oneToOne ? lastStart : position; i <= lastStart; ++i) {
        if (matchEnd(last, text, i) == text.size())
            return true;
    }
    return false;
}

template<class Text>
size_t LikePattern::findSegment(const Segment &segment, const Text &text, size_t position) const
{
    // Every element takes at least one character.
    if (segment.size() > text.size() - position)
        return noMatch;
    if (segment.empty())
        return position;
    const size_t lastStart = text.size() - segment.size();
    const bool beginsWithLetter = segment.front().kind == Kind::Letter;
    for (; position <= lastStart; ++position) {
        if (beginsWithLetter && text.at(position) != segment.front().value)
            continue;
        const size_t end = matchEnd(segment, text, position);
        if (end != noMatch)
            return end;
    }
    return noMatch;
}

template<class Text>
bool LikePattern::matchesElement(const Element &element, const Text &text, size_t position) const
{
    const char32_t c = text.at(position);
    switch (element.kind) {
    case Kind::Letter:
        return c == element.value;
    case Kind::AnyOne:
        return true;
    case Kind::Digit:
        return c >= U'0' && c <= U'9';
    case Kind::List:
        return m_lists[element.value].contains(c);
    }
    Q_UNREACHABLE();
}

template<class Text>
size_t LikePattern::matchEnd(const Segment &segment, const Text &text, size_t position) const
{
    for (const Element &element : segment) {
        if (position >= text.size() || !matchesElement(element, text, position))
            return noMatch;
        position = element.kind == Kind::Letter ? position + 1 : text.next(position);
    }
    return position;
}

} // namespace obelmark
