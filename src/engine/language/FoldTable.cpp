// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/FoldTable.h"

#include "engine/language/BaseLetters.h"
#include <QList>

namespace obelmark {

namespace {

/// Accents, vowel points and tone marks have a combining class. The vowel signs of Indic scripts and of Thai
/// have none: they are letters of their own there, and stay.
bool isCombiningMark(char32_t character)
{
    return QChar::combiningClass(character) != 0;
}

QString fromCharacter(char32_t character)
{
    return QString::fromUcs4(&character, 1);
}

QString decomposedForOrder(const QString &text)
{
    QString spelled;
    for (const uint character : text.normalized(QString::NormalizationForm_KD).toUcs4()) {
        const QStringView base = baseLetters(character);
        spelled += base.isEmpty() ? fromCharacter(character) : base;
    }
    return spelled;
}

/// Letters are one kind in either case.
QChar::Category kindOf(char32_t character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Letter_Lowercase || category == QChar::Letter_Titlecase
               ? QChar::Letter_Uppercase
               : category;
}

/// Whether Unicode knows the character as another way of writing others.
bool isOtherWriting(char32_t character)
{
    const QChar::Decomposition tag = QChar::decompositionTag(character);
    return tag != QChar::NoDecomposition && tag != QChar::Canonical;
}

/// The same sign in the usual width and font, if there is one of that kind.
QString usualForm(char32_t character)
{
    if (isOtherWriting(character)) {
        const QString others = QChar::decomposition(character);
        const QList<uint> written = others.toUcs4();
        if (written.size() == 1 && kindOf(written.first()) == kindOf(character))
            return others;
    }
    return fromCharacter(character);
}

QString decomposedForLike(const QString &text)
{
    QString usual;
    for (const uint character : text.toUcs4())
        usual += usualForm(character);
    return usual.normalized(QString::NormalizationForm_D);
}

/// Letters that have no capital of their own, such as the sharp s, fold to those of their capital form:
/// QString::toCaseFolded() leaves them alone.
QString spelledOut(char32_t character)
{
    const QString text = fromCharacter(character);
    const QString upper = text.toUpper();
    return upper.toUcs4().size() > 1 ? upper : text;
}

} // namespace

FoldTable &FoldTable::ofOrder()
{
    static FoldTable table(decomposedForOrder);
    return table;
}

FoldTable &FoldTable::ofLike()
{
    static FoldTable table(decomposedForLike);
    return table;
}

QString FoldTable::foldOnce(const QString &text) const
{
    QString spelled;
    for (const uint character : text.toUcs4()) {
        // A ligature has a capital form only because it stands for several letters.
        const bool isWhole = m_decompose == decomposedForLike && isOtherWriting(character);
        spelled += isWhole ? fromCharacter(character) : spelledOut(character);
    }
    QString folded;
    for (const uint character : m_decompose(spelled.toCaseFolded()).toUcs4()) {
        if (!isCombiningMark(character))
            folded += fromCharacter(character);
    }
    return folded;
}

/// A decomposition can bring up capitals (the mathematical alphabets), a folded capital marks: repeat.
QString FoldTable::foldFully(QString text) const
{
    for (;;) {
        QString next = foldOnce(text);
        if (next == text)
            return text;
        text = std::move(next);
    }
}

std::unique_ptr<FoldTable::Block> FoldTable::makeBlock(char32_t first)
{
    auto block = std::make_unique<Block>();
    for (char32_t i = 0; i < blockSize; ++i) {
        const char32_t character = first + i;
        const QList<uint> folded = QChar::isSurrogate(character)
                                       ? QList<uint>{character}
                                       : foldFully(fromCharacter(character)).toUcs4();
        Q_ASSERT(size_t(folded.size()) <= mostPerByte * size_t(fromCharacter(character).toUtf8().size()));
        Entry &entry = (*block)[i];
        entry.length = quint32(folded.size()) & 0xff;
        entry.payload = (folded.size() == 1 ? folded.front() : quint32(m_expansions.size())) & 0xffffff;
        if (folded.size() != 1)
            m_expansions.insert(m_expansions.end(), folded.begin(), folded.end());
    }
    return block;
}

} // namespace obelmark
