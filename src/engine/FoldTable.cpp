#include "engine/FoldTable.h"
#include <QList>
#include <QString>

namespace obelmark {

namespace {

/// Accents, vowel points and tone marks have a combining class. The vowel signs of Indic scripts and of Thai
/// have none: they are letters of their own there, and stay.
bool isCombiningMark(char32_t character)
{
    return QChar::combiningClass(character) != 0;
}

QList<uint> foldOnce(const QList<uint> &characters)
{
    const QString text =
        QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.data()), characters.size());
    QList<uint> folded = text.toCaseFolded().normalized(QString::NormalizationForm_KD).toUcs4();
    folded.removeIf([](uint character) { return isCombiningMark(character); });
    return folded;
}

/// A decomposition can bring up capitals (the mathematical alphabets), a folded capital marks: repeat.
QList<uint> foldFully(char32_t character)
{
    QList<uint> characters{uint(character)};
    if (QChar::isSurrogate(character))
        return characters;
    for (;;) {
        QList<uint> next = foldOnce(characters);
        if (next == characters)
            return characters;
        characters = std::move(next);
    }
}

} // namespace

FoldTable &FoldTable::shared()
{
    static FoldTable table;
    return table;
}

std::unique_ptr<FoldTable::Block> FoldTable::makeBlock(char32_t first)
{
    auto block = std::make_unique<Block>();
    for (char32_t i = 0; i < blockSize; ++i) {
        const QList<uint> folded = foldFully(first + i);
        Entry &entry = (*block)[i];
        Q_ASSERT(size_t(folded.size()) <= mostPerByte * (first + i < 0x80 ? 1 : first + i < 0x800 ? 2 : 3));
        entry.length = quint32(folded.size()) & 0xff;
        entry.payload = (folded.size() == 1 ? folded.front() : quint32(m_expansions.size())) & 0xffffff;
        if (folded.size() != 1)
            m_expansions.insert(m_expansions.end(), folded.begin(), folded.end());
    }
    return block;
}

} // namespace obelmark
