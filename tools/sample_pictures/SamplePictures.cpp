// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws pictures of some coins of the sample collection: sample_pictures DATABASE FOLDER
#include "CoinDrawing.h"
#include <QFontInfo>
#include <QGuiApplication>
#include <SQLiteCpp/SQLiteCpp.h>
#include <iostream>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

struct Piece
{
    const char *country;
    const char *descr; ///< how its description begins
    CoinDrawing drawing;
};

constexpr int roundHole = -1;

QList<Piece> pieces()
{
    using enum Metal;
    return {
        {"Ancient Greece", "Tetradrachm, Athena", {.motif = owl()}},
        {"Barbados", "Penny token", {Copper, 0, 0, u"I SERVE"_s, u"· 1788 ·"_s, sprig()}},
        {"Belgian Congo", "2 francs, elephant", {Brass, 6, 0, {}, {}, wreathed(u"2"_s)}},
        {"British West Africa",
         "Penny, Edward VIII",
         {Silver, 0, roundHole, u"BRITISH WEST AFRICA"_s, u"· 1936 ·"_s, twoTriangles()}},
        {"Canada", "5 cents, bicentennial", {Silver, 12, 0, u"CANADA"_s, {}, wreathed(u"5"_s)}},
        {"Cuba", "1 peso, star", {Silver, 0, 0, u"PATRIA · LIBERTAD"_s, u"· 1933 ·"_s, starWithRays()}},
        {"Denmark", "½ krone", {Brass, 0, 0, u"DANMARK"_s, u"· 1925 ·"_s, figures(u"½"_s)}},
        {"Fiji", "Penny, Edward VIII", {Silver, 0, roundHole, u"FIJI"_s, u"· 1936 ·"_s, petals()}},
        {"Israel", "5 לירות", {Silver, 0, 0, {}, u"· 1958 ·"_s, menorah()}},
        {"Japan", "1 mon, Kan'ei", {Copper, 0, 4, {}, {}, waves()}},
        {"Katanga", "5 francs", {Copper, 0, 0, u"KATANGA"_s, u"5 FRANCS"_s, saltire()}},
        {"Mexico", "50 pesos, centenario", {Gold, 0, 0, u"50 PESOS"_s, u"· 1947 ·"_s, sun()}},
        {"Netherlands", "5 cent, square", {Silver, 4, 0, {}, {}, wreathed(u"5"_s)}},
        {"New Guinea",
         "Shilling, George V",
         {Silver, 0, roundHole, u"NEW GUINEA"_s, u"· 1935 ·"_s, petals()}},
        {"Ottoman Empire", "20 kuruş", {Silver, 0, 0, {}, {}, crescentAndStar()}},
        {"Soviet Union", "1 рубль, рабочий", {Silver, 0, 0, u"ОДИН РУБЛЬ"_s, u"· 1924 ·"_s, star()}},
        {"Spain", "25 céntimos, holed", {Silver, 0, roundHole, u"ESPAÑA"_s, u"· 1927 ·"_s, petals()}},
        {"Straits Settlements", "1 cent, George V, square", {Copper, 4, 0, {}, {}, figures(u"1"_s)}},
        {"Switzerland", "5 Franken, shepherd", {Silver, 0, 0, u"HELVETIA"_s, u"· 1931 ·"_s, cross()}},
        {"United Kingdom", "50 new pence", {Silver, 7, 0, u"NEW PENCE"_s, {}, figures(u"50"_s)}},
        {"United Kingdom", "Threepence", {Brass, 12, 0, u"THREE PENCE"_s, {}, sprig()}},
        {"United States", "3 cents, nickel", {Silver, 0, 0, {}, {}, wreathed(u"III"_s)}},
    };
}

/// The one coin of that country whose description begins so.
qint64 coinOf(SQLite::Database &database, const Piece &piece)
{
    SQLite::Statement coin(database,
                           "select coinid from Coin join country using (couid) where coudesc = ? and "
                           "substr(descr, 1, length(?2)) = ?2");
    coin.bind(1, piece.country);
    coin.bind(2, piece.descr);
    const qint64 id = coin.executeStep() ? coin.getColumn(0).getInt64() : 0;
    if (id == 0 || coin.executeStep())
        throw std::runtime_error(std::string("not one coin, but none or several: ") + piece.descr);
    return id;
}

} // namespace

int main(int argc, char *argv[])
try {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        throw std::runtime_error("usage: sample_pictures DATABASE FOLDER");
    if (!QFontInfo(QFont(u"DejaVu Serif"_s)).exactMatch())
        throw std::runtime_error("DejaVu Serif (package fonts-dejavu-core) is not installed");
    SQLite::Database database(arguments[1].toStdString());
    for (const Piece &piece : pieces()) {
        const QString path =
            u"%1/%2.jpg"_s.arg(arguments[2]).arg(coinOf(database, piece), 8, 10, QChar(u'0'));
        if (!drawn(piece.drawing).save(path, "JPG", 85))
            throw std::runtime_error(path.toStdString() + " could not be written");
    }
    return 0;
} catch (const std::exception &error) {
    std::cerr << "sample_pictures: " << error.what() << '\n';
    return 1;
}
