// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "engine/rows/Database.h"
#include "support/Cases.h"
#include <sys/stat.h>

using namespace obelmark;

class StartUpTest : public QObject
{
    Q_OBJECT
private slots:
    void freshFolder()
    {
        EditorFixture e;
        QVERIFY(!QDir(u"images"_s).exists());
        e.start();
        QVERIFY(QDir(u"images"_s).exists());
        QCOMPARE(e.window->windowTitle(), u"Obelmark"_s);
        QCOMPARE(e.shared->AppFolder, QDir::currentPath() + u'/');
        QCOMPARE(e.shared->OutputTarget, ReportKind::Preview);
        QVERIFY(e.list(u"cmbCou").count() > 100);
        QCOMPARE(e.list(u"cmbCou").currentIndex(), -1);
        QVERIFY(gui::trigger(*e.window, u"mnuRptOut_3"_s));
        QCOMPARE(e.shared->OutputTarget, ReportKind::HtmlFile);
        QVERIFY(e.the<QAction>(u"mnuRptOut_3").isChecked());
        QVERIFY(!e.the<QAction>(u"mnuRptOut_1").isChecked());
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.the<QAction>(u"mnuExit").trigger());
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void unfinishedFiles()
    {
        EditorFixture e;
        const auto make = [](const QString &name, int hoursAgo) {
            QFile file(name);
            return file.open(QIODevice::WriteOnly) &&
                   file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hoursAgo),
                                    QFileDevice::FileModificationTime);
        };
        QVERIFY(QDir().mkdir(u"images"_s));
        QVERIFY(make(u".obelmark-pack.tmp"_s, 2) && make(u"images/.obelmark-picture.tmp"_s, 30));
        QVERIFY(make(u".obelmark-0.tmp"_s, 0) && make(u"obelmark-list.tmp"_s, 30) && make(u".hidden"_s, 30));
        e.start();
        QVERIFY(QDir(u"images"_s).isEmpty(QDir::Files | QDir::Hidden));
        QStringList left = QDir().entryList({u"*obelmark*"_s, u".h*"_s}, QDir::Files | QDir::Hidden);
        QCOMPARE(left, QStringList({u".hidden"_s, u".obelmark-0.tmp"_s, u"obelmark-list.tmp"_s}));
    }

    void picturesFolderInTheWay()
    {
        EditorFixture e;
        QVERIFY(QFile::link(u"nowhere"_s, u"images"_s));
        const QString path = QDir::currentPath() + u"/images"_s;
        for (const auto *what : {u"a link that leads nowhere", u"a file, and not a folder"}) {
            e.desktop.expectMessage(u"75  The folder for the pictures cannot be made: '%1' is %2."_s.arg(
                path, QString::fromUtf16(what)));
            QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.start());
            QVERIFY(QFile::remove(path) && QFile::copy(u"coin.mdb"_s, path));
        }
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void otherLetterCases()
    {
        EditorFixture e;
        QVERIFY(QFile::rename(u"coin.mdb"_s, u"Coin.MDB"_s));
        QVERIFY(QDir().mkdir(u"IMAGES"_s));
        e.start();
        QVERIFY(e.list(u"cmbCou").count() > 100);
        QVERIFY(!QDir(u"images"_s).exists());
    }

    void databaseThatCannotBeOpened_data() { cases::add(); }
    void databaseThatCannotBeOpened()
    {
        const auto [file, message] = cases::row<2>();
        EditorFixture e;
        const QString path = QDir::currentPath() + u"/coin.mdb"_s;
        std::unique_ptr<Database> other;
        QByteArray content;
        if (file == u"in use") {
            other = Database::open(path, Database::Access::Exclusive, {});
        } else if (file == u"only the one before packing") {
            const QString old = QDir::currentPath() + u"/Coindb.bak"_s;
            QVERIFY(QFile::rename(path, old));
            e.desktop.expectMessage(
                u"The database file is missing, but the database as it was before it was last compacted is "
                "in the file '%1'.  To go on with that one, make a copy of it with the name '%2'."_s.arg(
                    old, path));
        } else {
            QVERIFY(QFile::remove(path));
            content = file == u"garbage" ? QByteArray("not a database, ").repeated(1000) : QByteArray();
            QFile written(path);
            QVERIFY(file == u"missing" || (file == u"named pipe" && ::mkfifo("coin.mdb", 0600) == 0) ||
                    (written.open(QIODevice::WriteOnly) && written.write(content) >= 0));
        }
        e.desktop.expectMessage(message.contains(u"%1"_s) ? message.arg(path) : message);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.start());
        QCOMPARE(e.desktop.problems(), QStringList());
        QCOMPARE(QFile::exists(path), file != u"missing" && file != u"only the one before packing");
        if (file == u"zero bytes" || file == u"garbage") {
            QFile untouched(path);
            QVERIFY(untouched.open(QIODevice::ReadOnly));
            QCOMPARE(untouched.readAll(), content);
        }
    }

    void everyMenuItemHasItsHelp()
    {
        EditorFixture e;
        e.start();
        for (const QAction *action : e.window->findChildren<QAction *>()) {
            const bool isItem = action->objectName().startsWith(u"mnu") && !action->isSeparator();
            QVERIFY2(!isItem || action->menu() || action->property("helpTopic").toInt() > 0,
                     qPrintable(action->objectName()));
        }
    }
};

QTEST_MAIN(StartUpTest)
#include "StartUp.moc"
