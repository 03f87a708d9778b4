// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/ReportFont.h"

#include "documents/PageSetup.h"
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

/// Whether a letter stands for itself, wherever it stands: it neither joins with its neighbours nor changes
/// their order, and its glyph has to come from the font itself.
static bool isPlain(char16_t letter)
{
    const QChar c(letter);
    if (!c.isPrint() || c.isMark() || c.category() == QChar::Other_Format)
        return false;
    switch (c.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
        return false;
    default:
        break;
    }
    switch (c.script()) {
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
        return true;
    default:
        return false;
    }
}

ReportFont::ReportFont(double points, QFont::Weight weight) : m_font(u"Times New Roman"_s)
{
    m_font.setStyleHint(QFont::Serif);
    m_font.setPixelSize(int(std::lround(points * twipsPerPoint)));
    m_font.setWeight(weight);
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_font.setKerning(false);
    m_rawFont = QRawFont::fromFont(m_font);
    const QFontMetricsF metrics(m_font);
    m_ascent = metrics.ascent();
    m_lineHeight = std::ceil(metrics.lineSpacing());
}

ReportFont::Glyph ReportFont::glyph(char16_t letter) const
{
    if (letter >= lettersKnown)
        return {};
    std::unique_ptr<Block> &block = m_blocks[letter / lettersInBlock];
    if (!block)
        block = measure(char16_t(letter - letter % lettersInBlock));
    return (*block)[letter % lettersInBlock];
}

std::unique_ptr<ReportFont::Block> ReportFont::measure(char16_t first) const
{
    auto block = std::make_unique<Block>();
    for (char16_t i = 0; i < lettersInBlock; ++i) {
        const auto letter = char16_t(first + i);
        const QList<quint32> glyphs = m_rawFont.glyphIndexesForString(QString(QChar(letter)));
        // Glyph 0 is the box for a letter that the font does not have.
        if (!isPlain(letter) || glyphs.size() != 1 || glyphs[0] == 0)
            continue;
        (*block)[i] = {glyphs[0], float(m_rawFont.advancesForGlyphIndexes(glyphs).constFirst().x())};
    }
    return block;
}

std::optional<double> ReportFont::plainWidth(QStringView text) const
{
    double width = 0;
    for (const QChar letter : text) {
        const Glyph known = glyph(letter.unicode());
        if (known.width < 0)
            return {};
        width += double(known.width);
    }
    return width;
}

void PlainText::add(QPointF baseline, QStringView text)
{
    for (const QChar letter : text) {
        const ReportFont::Glyph glyph = m_font.glyph(letter.unicode());
        m_glyphs.push_back(glyph.index);
        m_positions.push_back(baseline);
        baseline.rx() += double(glyph.width);
    }
}

void PlainText::paint(QPainter &painter) const
{
    if (m_glyphs.empty())
        return;
    QGlyphRun run;
    run.setRawFont(m_font.m_rawFont);
    run.setRawData(m_glyphs.data(), m_positions.data(), int(m_glyphs.size()));
    painter.drawGlyphRun(QPointF(), run);
}

} // namespace obelmark
