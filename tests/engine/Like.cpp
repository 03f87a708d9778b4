#include "engine/language/LikePattern.h"
#include "engine/language/TextFold.h"
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// The folded form of texts, and the patterns of "like".
class Like : public QObject
{
    Q_OBJECT
private slots:
    void folds_data();
    void folds();
    void foldingIsFinal();
    void matches_data();
    void matches();
    void takesNoExponentialTime();
};

void Like::folds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("folded");
    QTest::newRow("ascii") << u"KM 12-A [x]"_s << u"km 12-a [x]"_s;
    QTest::newRow("accents") << u"Écu Ångström Łódź"_s << u"ecu angstrom lodz"_s;
    QTest::newRow("already decomposed") << u"e\u0301cu"_s << u"ecu"_s;
    QTest::newRow("sharp s, ligature") << u"Groß \uFB01n"_s << u"gross fin"_s;
    QTest::newRow("greek, final sigma") << u"ΔΡΑΧΜΉ ΛΌΓΟΣ λόγος"_s << u"δραχμη λογοσ λογοσ"_s;
    QTest::newRow("cyrillic") << u"РУБЛЁВЫЙ"_s << u"рублевыи"_s;
    QTest::newRow("turkish dotted capital") << u"İSTANBUL"_s << u"istanbul"_s;
    QTest::newRow("letters of their own") << u"Æbeløe ǾÞÐ Ħı Œuf ƏSƏR"_s << u"aebeloe othd hi oeuf eser"_s;
    QTest::newRow("vietnamese") << u"Đồng Việt"_s << u"dong viet"_s;
    QTest::newRow("arabic points") << u"دِينَار"_s << u"دينار"_s;
    QTest::newRow("hebrew points") << u"שֶׁקֶל"_s << u"שקל"_s;
    QTest::newRow("devanagari keeps its vowel signs") << u"रुपये"_s << u"रुपये"_s;
    QTest::newRow("full-width and half-width") << u"ＡＢＣ１２"_s << u"abc12"_s;
    QTest::newRow("mathematical capitals, beyond 16 bits") << u"𝐀𝐁 𐐀"_s << u"ab 𐐨"_s;
    QTest::newRow("empty") << QString(u""_s) << QString(u""_s);
}

void Like::folds()
{
    QFETCH(QString, text);
    QTEST(foldText(text), "folded");
}

void Like::foldingIsFinal()
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

void Like::matches_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("matching");
    QTest::addColumn<QStringList>("others");
    const auto row = [](const char *name, const QString &pattern, const QStringList &matching,
                        const QStringList &others) { QTest::newRow(name) << pattern << matching << others; };
    row("equal", u"Liberty"_s, {u"liberty"_s, u"LIBERTY"_s}, {u"Liberty "_s, u"a Liberty"_s, u""_s});
    row("empty", u""_s, {u""_s}, {u" "_s, u"x"_s});
    row("anything", u"*"_s, {u""_s, u"x"_s, u"ж"_s}, {});
    row("contains", u"*ib*"_s, {u"liberty"_s, u"IB"_s, u"iib"_s, u"éib"_s}, {u"i b"_s, u"lbi"_s, u"жi"_s});
    row("begins", u"Lib*"_s, {u"Liberty"_s, u"lib"_s, u"líbé"_s}, {u"Walking Lib"_s, u"li"_s, u"é"_s});
    row("ends", u"*TY"_s, {u"liberty"_s, u"ty"_s, u"éty"_s}, {u"types"_s, u"y"_s, u"é"_s});
    row("pieces in order", u"a*b*c"_s, {u"abc"_s, u"a-b-b-c"_s, u"aébc"_s}, {u"acb"_s, u"abcd"_s, u"ab"_s});
    row("the last piece does not overlap", u"*ab*ab"_s, {u"abab"_s, u"xabxab"_s}, {u"ab"_s, u"aab"_s});
    row("end found behind a false start", u"*aab"_s, {u"aaab"_s, u"aab"_s, u"éaaab"_s}, {u"aba"_s});
    row("many asterisks", u"**a***"_s, {u"a"_s, u"xay"_s}, {u"x"_s, u""_s});
    row("one character", u"K?12"_s, {u"KM12"_s, u"K 12"_s, u"kß12"_s, u"k한12"_s}, {u"K12"_s, u"KMM12"_s});
    row("one character with accent in two", u"?cu"_s, {u"e\u0301cu"_s, u"Écu"_s}, {u"cu"_s});
    row("a digit", u"#a#"_s, {u"1a2"_s, u"９a０"_s}, {u"xa1"_s, u"1a"_s, u"12a3"_s});
    row("a list", u"[abc]1"_s, {u"a1"_s, u"C1"_s, u"ä1"_s}, {u"d1"_s, u"1"_s, u"ab1"_s});
    row("a range", u"[a-c]1"_s, {u"b1"_s, u"B1"_s}, {u"d1"_s, u"-1"_s});
    row("ranges and letters", u"[a-c0-4x]"_s, {u"b"_s, u"3"_s, u"X"_s}, {u"d"_s, u"5"_s, u"-"_s});
    row("cyrillic range", u"[А-Я]*"_s, {u"рубль"_s, u"Ёж"_s}, {u"ruble"_s, u"1"_s});
    row("none of", u"[!a-c]1"_s, {u"d1"_s, u"-1"_s, u"ж1"_s}, {u"a1"_s, u"Á1"_s, u"1"_s});
    row("wildcards in brackets", u"[*][?][#][[]"_s, {u"*?#["_s}, {u"abc["_s, u"*?1["_s});
    row("exclamation mark and hyphen alone", u"[!][-]"_s, {u"!-"_s}, {u"a-"_s, u"--"_s});
    row("hyphen at the ends", u"[-a][b-]"_s, {u"-b"_s, u"a-"_s}, {u"ba"_s});
    row("bracket never closed", u"a[b"_s, {u"a[b"_s, u"A[B"_s}, {u"ab"_s});
    row("closing bracket alone", u"a]"_s, {u"a]"_s}, {u"a"_s});
    row("empty list", u"a[]b"_s, {u"ab"_s}, {u"a]b"_s, u"a[]b"_s});
    row("other tools' wildcards", u"50%_a"_s, {u"50%_A"_s}, {u"50 xa"_s, u"5000a"_s});
    row("either side in capitals and accents", u"*ÉCU D'ÓR*"_s, {u"un ecu d'or"_s, u"Ècu d'Or"_s},
        {u"ecud'or"_s});
    row("sharp s both ways", u"*strasse"_s, {u"Hauptstraße"_s, u"STRASSE"_s}, {u"strase"_s});
    row("sharp s in the pattern", u"groß*"_s, {u"GROSS"_s, u"Großmünze"_s}, {u"gros"_s});
    row("signs written as one", u"?x"_s, {u"½x"_s, u"²x"_s, u"Ⅳx"_s, u"ﬁx"_s, u"ŉx"_s, u"Ⓐx"_s, u"ｱx"_s}, {});
    row("signs that could be spelled out", u"[12ivfna]*"_s, {u"Ａ"_s, u"𝐀"_s, u"１"_s},
        {u"½"_s, u"²x"_s, u"ª"_s, u"ⅳ"_s, u"Ⅴ"_s, u"ﬁ"_s, u"ŉ"_s, u"Ⓐ"_s});
    row("their case", u"ⅳⓐǆ\u00a0Ω"_s, {u"ⅣⒶǅ ω"_s, u"ⅳⓐǄ\u00a0Ω"_s}, {u"ivaǆ ω"_s});
    row("surrogate pairs", u"?𐐀*"_s, {u"𝒳𐐨"_s}, {u"𐐨"_s});
    row("arabic", u"*دينار*"_s, {u"دِينَار"_s}, {u"درهم"_s});
}

void Like::matches()
{
    QFETCH(QString, pattern);
    QFETCH(QStringList, matching);
    QFETCH(QStringList, others);
    const LikePattern like(pattern.toStdString());
    for (const QString &text : matching)
        QVERIFY2(like.matches(text.toStdString()), qPrintable(text));
    for (const QString &text : others)
        QVERIFY2(!like.matches(text.toStdString()), qPrintable(text));
}

void Like::takesNoExponentialTime()
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

QTEST_APPLESS_MAIN(Like)
#include "Like.moc"
