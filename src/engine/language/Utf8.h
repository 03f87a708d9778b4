// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace obelmark {

/// Reads UTF-8 character by character. Bytes that are none read as U+FFFD, one each.
class Utf8Reader
{
public:
    explicit Utf8Reader(std::string_view text) : m_at(text.data()), m_end(text.data() + text.size()) {}

    bool atEnd() const { return m_at == m_end; }
    char32_t next()
    {
        const auto lead = static_cast<unsigned char>(*m_at++);
        if (lead < 0x80)
            return lead;
        if (lead >= 0xc2 && lead < 0xe0)
            return rest(lead & 0x1fu, 1, 0x80);
        if (lead >= 0xe0 && lead < 0xf0)
            return rest(lead & 0x0fu, 2, 0x800);
        if (lead >= 0xf0 && lead < 0xf5)
            return rest(lead & 0x07u, 3, 0x10000);
        return replacement;
    }

private:
    static constexpr char32_t replacement = 0xfffd;

    char32_t rest(char32_t character, int count, char32_t least)
    {
        const char *p = m_at;
        for (int i = 0; i < count; ++i, ++p) {
            if (p == m_end || (static_cast<unsigned char>(*p) & 0xc0u) != 0x80)
                return replacement;
            character = character << 6 | (static_cast<unsigned char>(*p) & 0x3fu);
        }
        if (character < least || character > 0x10ffff || (character >= 0xd800 && character < 0xe000))
            return replacement;
        m_at = p;
        return character;
    }

    const char *m_at;
    const char *m_end;
};

} // namespace obelmark
