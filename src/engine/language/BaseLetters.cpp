// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/BaseLetters.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace obelmark {

namespace {

struct Letter
{
    char16_t letter;
    const char16_t *base;
};

constexpr Letter letters[] = {
    {0x00e6, u"ae"}, {0x00f0, u"d"}, {0x00f8, u"o"}, {0x00fe, u"th"}, {0x0111, u"d"},  {0x0127, u"h"},
    {0x0131, u"i"},  {0x0138, u"q"}, {0x0142, u"l"}, {0x014b, u"n"},  {0x0153, u"oe"}, {0x0167, u"t"},
    {0x0180, u"b"},  {0x0183, u"b"}, {0x0188, u"c"}, {0x018c, u"d"},  {0x0192, u"f"},  {0x0195, u"hv"},
    {0x0199, u"k"},  {0x019a, u"l"}, {0x019e, u"n"}, {0x01a3, u"oi"}, {0x01a5, u"p"},  {0x01ab, u"t"},
    {0x01ad, u"t"},  {0x01b4, u"y"}, {0x01b6, u"z"}, {0x01dd, u"e"},  {0x01e5, u"g"},  {0x0221, u"d"},
    {0x0225, u"z"},  {0x0234, u"l"}, {0x0235, u"n"}, {0x0236, u"t"},  {0x0237, u"j"},  {0x023c, u"c"},
    {0x023f, u"s"},  {0x0240, u"z"}, {0x0247, u"e"}, {0x0249, u"j"},  {0x024b, u"q"},  {0x024d, u"r"},
    {0x024f, u"y"},  {0x0253, u"b"}, {0x0254, u"o"}, {0x0256, u"d"},  {0x0257, u"d"},  {0x0259, u"e"},
    {0x025b, u"e"},  {0x0260, u"g"}, {0x0263, u"g"}, {0x0268, u"i"},  {0x0269, u"i"},  {0x026b, u"l"},
    {0x0271, u"m"},  {0x0272, u"n"}, {0x0275, u"o"}, {0x027d, u"r"},  {0x0282, u"s"},  {0x0288, u"t"},
    {0x0289, u"u"},  {0x028b, u"v"}, {0x1d7d, u"p"}, {0x2c61, u"l"},  {0x2c65, u"a"},  {0x2c66, u"t"},
    {0x2c68, u"h"},  {0x2c6a, u"k"}, {0x2c6c, u"z"}, {0x2c73, u"w"},  {0xa765, u"th"}, {0xa793, u"c"},
    {0xa7a1, u"g"},  {0xa7a3, u"k"}, {0xa7a5, u"n"}, {0xa7a7, u"r"},  {0xa7a9, u"s"},
};
static_assert(std::ranges::is_sorted(letters, std::less(), &Letter::letter));

} // namespace

QStringView baseLetters(char32_t letter)
{
    const auto found = std::ranges::lower_bound(letters, letter, std::less<char32_t>(), &Letter::letter);
    return found != std::end(letters) && found->letter == letter ? QStringView(found->base) : QStringView();
}

} // namespace obelmark
