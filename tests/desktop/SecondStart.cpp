// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/SecondStart.h"

#include <QtTest>
#include <thread>

using namespace obelmark;
using namespace Qt::StringLiterals;

class SecondStartTest : public QObject
{
    Q_OBJECT
private slots:
    void onlyOnTheSameFolder()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        const QString link = other.filePath(u"link"_s);
        QVERIFY(QFile::link(folder.path(), link));
        SecondStart::knock(folder.path()); // nobody there
        std::optional<SecondStart> running(folder.path());
        const SecondStart late(folder.path()); // the other one has it
        QSignalSpy knocks(&*running, &SecondStart::knocked);
        const auto knockOn = [](const QString &path) {
            std::thread([path] { SecondStart::knock(path); }).detach();
        };
        knockOn(other.path());
        knockOn(other.filePath(u"missing"_s));
        knockOn(link);
        QVERIFY(knocks.wait());
        QCOMPARE(knocks.size(), 1);
        SecondStart::knock(folder.path()); // unanswered: nobody is at the door now
        running.emplace(other.path());
        QSignalSpy otherKnocks(&*running, &SecondStart::knocked);
        knockOn(other.path());
        QVERIFY(otherKnocks.wait());
    }
};

QTEST_GUILESS_MAIN(SecondStartTest)
#include "SecondStart.moc"
