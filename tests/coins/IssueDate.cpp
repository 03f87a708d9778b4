// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/IssueDate.h"

#include "common/SharedState.h"
#include "dates/DateFormat.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"

using namespace obelmark;

class IssueDateTest : public QObject
{
    Q_OBJECT
private slots:
    void startOfTheCalendar_data() { cases::add(); }
    void startOfTheCalendar()
    {
        const auto [name, locale, text, year, start] = cases::row<5>();
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(locale)));
        ChkDateFmt(shared);
        QCOMPARE(isoText(issueDateStart(text, year, shared)),
                 start.isEmpty() ? isoText(Date::today()) : start);
    }
};

QTEST_GUILESS_MAIN(IssueDateTest)
#include "IssueDate.moc"
