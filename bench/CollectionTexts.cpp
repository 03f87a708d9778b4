// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CollectionTexts.h"

#include <QStringList>
#include <vector>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

/// The words of a language, or of a few that share their letters; "|" stands between them.
struct Vocabulary
{
    QString denominations, subjects, varieties, metals, phrases;
};

const Vocabulary english{
    u"Cent|2 Cents|5 Cents|Dime|Quarter|Half "
    u"Dollar|Dollar|Farthing|Penny|Sixpence|Shilling|Florin|Crown|Sovereign|"
    "10 Centimes|Franc|20 Francs|5 Pfennig|Mark|Thaler|Lira|Rupee|Peso|8 Reales|Denarius|Ducat|Escudo|Yen"_s,
    u"Liberty Head|Seated Liberty|Indian Head|Lincoln|Buffalo|Mercury|Victoria|Edward VII|George V|Elizabeth "
    u"II|"
    "Britannia|Napoleon III|Ceres|Marianne|Wilhelm II|Franz Joseph|Umberto I|Leopold II|Wilhelmina|Christian "
    "X|"
    "Gustaf V|Trajan|Hadrian|Eagle|Sailing Ship|Wheat Ear|Maple Leaf|Kookaburra|Springbok"_s,
    u"large date|small date|proof|with motto|without motto|young head|veiled head|laureate "
    u"head|overdate|doubled die|"
    "plain edge|reeded edge|commemorative|pattern|mint mark below bow|no mint mark|type II reverse"_s,
    u"Silver|Gold|Bronze|Copper|Nickel|Copper-nickel|Aluminium|Zinc"_s,
    u"Bought at the spring show.|Light cleaning long ago.|Edge knock at four o'clock.|Fine old toning.|"
    "Ex dealer's stock, with ticket.|Weight 11.3 g, diameter 30 mm.|Scratch on the reverse field."_s};

const std::vector<Vocabulary> otherLanguages{
    {u"½ Krone|1 Öre|5 Kčs|10 Złotych|20 Forint, külön|1 Réal"_s,
     u"Žižka|Müller|Köln, Dom|Jagiełło|Mátyás király|São Tomé|Curaçao"_s,
     u"große Jahreszahl|épreuve|sin ceca, año ancho|příležitostná"_s, u"Argent doré|Müntzmetall|Měď"_s,
     u"Gekauft in München.|Trouvé près de l'église.|Kúpené na burze v Žiline."_s},
    {u"20 копеек|1 рубль|5 стотинки|10 динара"_s, u"Николай II|Герб СССР|Иван Асен II|Вук Караџић"_s,
     u"медный узор|без знака|юбилейная"_s, u"Серебро|Медь|Никель"_s,
     u"Куплено на выставке.|Царапина на реверсе.|Сравнить с каталогом."_s},
    {u"5 Δραχμαί|10 Λεπτά|1 Οβολός"_s, u"Γεώργιος Α΄|Αθηνά|Κουκουβάγια"_s, u"σπάνιο|μεγάλο κεφάλι"_s,
     u"Άργυρος|Χαλκός"_s, u"Από παλιά συλλογή.|Αγορά στην Αθήνα."_s},
    {u"一圓|五十錢|壹角|十文"_s, u"龍|光緒元寶|明治|孫中山像"_s, u"大字|小字|様品"_s, u"銀|銅|白銅"_s,
     u"上海で購入。|裏面にキズあり。"_s},
    {u"١٠ قروش|٥ ريالات|درهم"_s, u"الملك فؤاد|الأسد والشمس"_s, u"نادر|تجريبي"_s, u"فضة|نحاس"_s,
     u"من سوق القاهرة.|حالة جيدة."_s},
};

QString oneOf(const QString &words, const Pick &pick)
{
    return words.section(u'|', int(pick(words.count(u'|') + 1)), -1).section(u'|', 0, 0);
}

} // namespace

CoinTexts makeCoinTexts(const Pick &pick, Letters letters)
{
    const bool other = letters == Letters::Other || (letters == Letters::Mixed && pick(10) == 0);
    const Vocabulary &words = other ? otherLanguages[size_t(pick(qint64(otherLanguages.size())))] : english;
    CoinTexts texts;
    texts.description = oneOf(words.denominations, pick) + u' ' + oneOf(words.subjects, pick);
    if (pick(4) != 0)
        texts.description += u", "_s + oneOf(words.varieties, pick);
    if (pick(3) == 0)
        texts.description += u" no. %1"_s.arg(pick(5000));
    if (pick(20) != 0)
        texts.catalogueNumber = oneOf(u"KM |KM |Y |C |S |"_s, pick) + QString::number(1 + pick(2500));
    if (pick(5) == 0)
        texts.catalogueNumber += QChar(u'a' + int(pick(4)));
    if (pick(4) == 0)
        texts.catalogueNumber += u"-%1"_s.arg(1 + pick(40));
    texts.metal = oneOf(words.metals, pick);
    for (qint64 phrases = pick(3) * pick(4); phrases > 0; --phrases)
        texts.notes += oneOf(words.phrases, pick) + u' ';
    texts.notes.truncate(200);
    return texts;
}

} // namespace obelmark::bench
