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

QString fromCharacter(char32_t character)
{
    return QString::fromUcs4(&character, 1);
}

/// Letters that have no capital of their own, such as the sharp s, fold to those of their capital form:
/// QString::toCaseFolded() leaves them alone.
QString spelledOut(char32_t character)
{
    const QString text = fromCharacter(character);
    const QString upper = text.toUpper();
    return upper.toUcs4().size() > 1 ? upper : text;
}

QString foldOnce(const QString &text)
{
    QString spelled;
    for (const uint character : text.toUcs4())
        spelled += spelledOut(character);
    QString folded;
    for (const uint character : spelled.toCaseFolded().normalized(QString::NormalizationForm_KD).toUcs4()) {
        if (!isCombiningMark(character))
            folded += fromCharacter(character);
    }
    return folded;
}

/// A decomposition can bring up capitals (the mathematical alphabets), a folded capital marks: repeat.
QString foldFully(QString text)
{
    for (;;) {
        QString next = foldOnce(text);
        if (next == text)
            return text;
        text = std::move(next);
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
