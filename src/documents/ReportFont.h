// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QRawFont>
#include <array>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace obelmark {

/// A font of the report's pages, measured in twips whatever the device: without hinting and kerning the
/// width of a line is the sum of its letters' widths.
class ReportFont
{
public:
    ReportFont(double points, QFont::Weight weight);

    const QFont &font() const { return m_font; }
    double ascent() const { return m_ascent; }
    double lineHeight() const { return m_lineHeight; }

    /// The width of a text that is one line of plain letters of this font: Latin, Greek, Cyrillic, digits,
    /// signs. Nothing when there is anything in it that has to be laid out.
    std::optional<double> plainWidth(QStringView text) const;

private:
    friend class PlainText;

    struct Glyph
    {
        quint32 index = 0;
        float width = -1; ///< below 0: not plain
    };
    static constexpr char16_t lettersKnown = 0x2200;
    static constexpr char16_t lettersInBlock = 64;
    using Block = std::array<Glyph, lettersInBlock>;

    Glyph glyph(char16_t letter) const;
    std::unique_ptr<Block> measure(char16_t first) const;

    QFont m_font;
    QRawFont m_rawFont;
    double m_ascent;
    double m_lineHeight;
    mutable std::array<std::unique_ptr<Block>, lettersKnown / lettersInBlock>
        m_blocks; ///< measured when needed
};

/// Plain texts all over a page, painted at once.
class PlainText
{
public:
    explicit PlainText(const ReportFont &font) : m_font(font) {}

    /// \a text is one that the font has a plainWidth() for; \a baseline is where its first letter stands.
    void add(QPointF baseline, QStringView text);
    void paint(QPainter &painter) const;

private:
    const ReportFont &m_font;
    std::vector<quint32> m_glyphs;
    std::vector<QPointF> m_positions;
};

} // namespace obelmark
