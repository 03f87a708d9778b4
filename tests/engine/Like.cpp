// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/LikePattern.h"
#include "engine/language/TextFold.h"
#include "support/Cases.h"

using namespace obelmark;
using namespace Qt::StringLiterals;

/// The folded form of texts, and the patterns of "like".
class Like : public QObject
{
    Q_OBJECT
private slots:
    void folds_data() { cases::add(); }
    void folds()
    {
        const auto [name, text, folded] = cases::row<3>();
        QCOMPARE(foldText(text), folded);
    }

    void foldingIsFinal()
    {
        // Every character of Unicode once: folding again changes nothing, nor does combining first.
        QString all;
        for (char32_t c = 1; c <= 0x10ffff; ++c) {
            if (QChar::isSurrogate(c) || QChar::category(c) == QChar::Other_NotAssigned)
                continue;
            all += QString::fromUcs4(&c, 1);
        }
        const QString folded = foldText(all);
        QVERIFY(foldText(folded) == folded);
        QVERIFY(folded.size() > 100'000);
    }

    void matches_data() { cases::add(); }
    void matches()
    {
        const auto [name, pattern, matching, others] = cases::row<4>();
        const LikePattern like(pattern.toStdString());
        for (const bool matches : {true, false}) {
            const QString &texts = matches ? matching : others;
            for (const QString &text : texts.isNull() ? QStringList() : texts.split(u" / "_s))
                QVERIFY2(like.matches(text.toStdString()) == matches, qPrintable(text));
        }
    }

    void takesNoExponentialTime()
    {
        const std::string value(20'000, 'a');
        QVERIFY(!LikePattern("*a*a*a*a*a*a*a*a*b").matches(value));
        QVERIFY(LikePattern("*a*a*a*a*a*a*a*a*b").matches(value + "b"));
        QVERIFY(!LikePattern("*a?a?a*a[a-c]a*b").matches("\xC3\xA9" + value));
        // Bytes that are no text at all
        QVERIFY(LikePattern("a?b").matches("a\xFF"
                                           "b"));
        QVERIFY(!LikePattern("*b").matches("\xC3"));
    }
};

QTEST_APPLESS_MAIN(Like)
#include "Like.moc"
