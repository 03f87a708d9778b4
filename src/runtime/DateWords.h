// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QList>
#include <QLocale>
#include <QSet>
#include <QString>
#include <array>
#include <optional>
#include <utility>

namespace obelmark {

/// The words of dates: the names of months and weekdays in the region's language, and what the date
/// conversion understands in that language and in English.
class DateWords
{
public:
    explicit DateWords(const QLocale &locale);

    /// \a month 1 to 12
    const QString &monthName(int month) const { return m_monthNames.at(size_t(month - 1)); }
    /// \a day 1 (Monday) to 7
    const QString &shortDayName(int day) const { return m_shortDayNames.at(size_t(day - 1)); }

    /// The month, 1 to 12, that a word names whole, shortened as the language does it, or by three letters or
    /// more that no other month begins with; nothing for other words.
    std::optional<int> month(QStringView word) const;
    /// Whether a word carries no meaning beside the numbers, as "de" does in Spanish and "月" in Japanese.
    bool isFiller(QStringView word) const;
    /// True for PM, false for AM, nothing for another text.
    std::optional<bool> isAfternoon(QStringView text) const;

private:
    using Names = QList<std::pair<QString, int>>; ///< as folded for comparing, with the month

    void learn(const QLocale &language);

    std::array<QString, 12> m_monthNames;
    std::array<QString, 7> m_shortDayNames;
    QHash<QString, int> m_months;
    QList<Names> m_wholeNames; ///< of one language after the other
    QHash<QString, bool> m_dayHalves;
    QSet<QString> m_fillers;
};

} // namespace obelmark
