// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>

namespace obelmark::bench {

/// Which letters the texts of a generated collection are written in.
enum class Letters {
    Mixed, ///< one coin in ten with other than ASCII letters
    Ascii,
    Other, ///< every text has letters that are not ASCII
};

/// Answers a random number from 0 up to but not including its argument.
using Pick = std::function<qint64(qint64)>;

struct CoinTexts
{
    QString description;
    QString catalogueNumber; ///< such as "KM 123", "Y 12a", "123-5"; now and then empty
    QString metal;
    QString notes; ///< up to 200 characters, often none
};
CoinTexts makeCoinTexts(const Pick &pick, Letters letters);

} // namespace obelmark::bench
