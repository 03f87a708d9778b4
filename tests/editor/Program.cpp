// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/Program.h"
#include "EditorFixture.h"
#include "backup/windows/frmBackup.h"
#include "custom_reports/windows/frmRptSpec.h"
#include "lookups/frmCodesMaint.h"
#include "support/Cases.h"

using namespace obelmark;

namespace {

const QString packQuestion = u"Do you wish to compact the Obelmark Program database?"_s;
const QString packTitle = u"Compact Database"_s;
const QString closedDatabase =
    u"An error has occurred.  You may have forgotten to close a window before packing or backing up the "
    "program's database.  Please rerun the program."_s;
/// The program away from its first coin, with choices made and an edit not saved.
struct RunningProgram
{
    RunningProgram()
    {
        collection.exec(u"insert into Coin (descr, catnum, pricepaid) values ('Alpha', '9', 25000), ('Beta', "
                        "'5', 0)"_s);
        shared.emplace(desktop, RegionalSettings(QLocale(u"en_US"_s)));
        windows.emplace(*shared);
        program.emplace(*shared, *windows);
        program->showMainWindow();
        gui::activate(main());
        gui::trigger(main(), u"mnuSort_2"_s);
        gui::trigger(main(), u"mnuRptOut_3"_s);
        gui::find<QTabWidget>(main(), u"Tab1"_s).setCurrentIndex(1);
        gui::focusByMouse(gui::find<QLineEdit>(main(), u"txtPricePaid"_s));
        gui::type(u"not a price"_s);
    }
    frmMain &main() const { return *program->mainWindow(); }
    QString shown(const QString &field) const { return gui::find<QLineEdit>(main(), field).text(); }
    bool isChecked(const QString &item) const { return gui::find<QAction>(main(), item).isChecked(); }

    TestCollection collection;
    ScriptedDesktop desktop;
    std::optional<SharedState> shared;
    std::optional<ProgramWindows> windows;
    std::optional<Program> program;
};

} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT
private slots:
    void worksOnTheFileWithoutTheMainWindow_data() { cases::add(); }
    void worksOnTheFileWithoutTheMainWindow()
    {
        const auto [name, drive, button, made, message] = cases::row<5>();
        RunningProgram p;
        const QString folder = p.shared->AppFolder;
        QSignalSpy ended(&*p.program, &Program::ended);
        QVERIFY(QDir().mkdir(u"drive"_s));
        if (!drive.isEmpty())
            p.desktop.setDrives({{drive, folder + drive, 1, true, true, made.contains(u"Obelmark"_s)}});
        const QPointer<frmMain> before = p.program->mainWindow();
        const auto choose = [&](const QString &item) {
            gui::trigger(p.main(), item);
            gui::waitUntil([&] { return !before && p.program->mainWindow(); }, "main window opened anew");
        };
        if (button.isEmpty()) {
            p.desktop.answerYesNo(packQuestion, packTitle, Answer::Yes);
            if (!message.isEmpty()) {
                QVERIFY(QDir().mkdir(u"Coinnew.mdb"_s));
                p.desktop.expectMessage(message.arg(folder), packTitle);
            }
            choose(u"mnuPack"_s);
        } else {
            if (!message.isEmpty())
                p.desktop.expectMessage(message);
            QVERIFY(gui::withDialog([&] { choose(u"mnuBackup"_s); },
                                    [&](QWidget &dialog) {
                                        QVERIFY(!p.program->mainWindow() && !p.shared->CoinDatabase);
                                        gui::click(gui::find<QPushButton>(dialog, button));
                                        QVERIFY(!dialog.isVisible());
                                    }));
        }
        QCOMPARE(p.desktop.problems(), QStringList());
        QVERIFY(!p.desktop.hourglass());
        QVERIFY(p.main().isVisible());
        QCOMPARE(p.shown(u"txtDescr"_s), u"Alpha"_s);
        QCOMPARE(p.shown(u"txtPricePaid"_s), u"$2.50"_s);
        QVERIFY(p.isChecked(u"mnuSort_1"_s) && p.shared->SortOrder == CoinOrder::Description);
        QVERIFY(p.isChecked(u"mnuRptOut_1"_s) && p.shared->OutputTarget == ReportKind::Preview);
        QCOMPARE(QFile::exists(u"Coindb.bak"_s), made == "Coindb.bak"_L1);
        QCOMPARE(QFile::exists(u"drive/coin.mdb"_s), made == "drive/coin.mdb"_L1);
        QVERIFY(made.isEmpty() || QFile::exists(made));
        QCOMPARE(ended.size(), 0);
        p.main().close();
        QCOMPARE(ended.size(), 1);
        QCOMPARE(p.collection.query(u"select descr, pricepaid from Coin where coinid = 1"_s),
                 QStringList(u"Alpha|25000"_s));
    }

    void firstRemovableDriveThatCanBeWrittenIsProposed()
    {
        RunningProgram p;
        p.desktop.setDrives({{QString(), u"/"_s, 5'368'709'120, false},
                             {u"ROOTS"_s, u"/media/me/ROOTS"_s, 1'500'000, true, false},
                             {u"STICK"_s, u"/media/me/STICK"_s, 1'500'000, true},
                             {u"CARD"_s, u"/media/me/CARD"_s, 0, true}});
        QVERIFY(gui::withDialog(
            [&] { frmBackup(*p.shared).exec(); },
            [](QWidget &window) {
                auto &drives = gui::find<QComboBox>(window, u"Drive1"_s);
                QCOMPARE(drives.currentText(), u"STICK (/media/me/STICK), 1.4 MiB free"_s);
                QCOMPARE(drives.itemText(0), u"/, 5.0 GiB free"_s);
                QCOMPARE(drives.itemText(1), u"ROOTS (/media/me/ROOTS), cannot be written to"_s);
                gui::press(Qt::Key_F1);
            }));
        QCOMPARE(p.desktop.calls().last().topic, 56);
    }

    void windowsOpenOverTheMainWindow()
    {
        RunningProgram p;
        QList<QWidget *> lists;
        for (const QString &item : {u"mnuMaint_1"_s, u"mnuMaint_3"_s}) {
            gui::trigger(p.main(), item);
            const auto windows = QApplication::topLevelWidgets();
            for (QWidget *window : windows) {
                if (qobject_cast<frmCodesMaint *>(window) && !lists.contains(window))
                    lists << window;
            }
        }
        QCOMPARE(lists.size(), 2);
        const QPoint middle = p.main().frameGeometry().center();
        QVERIFY((lists[0]->frameGeometry().center() - middle).manhattanLength() <= 2);
        QVERIFY(lists[0]->pos() != lists[1]->pos()); // one does not hide the other
        qDeleteAll(lists);
    }

    // Closing the database for a backup would lose a collection that is in no file any more.
    void backupOfALostFile()
    {
        RunningProgram p;
        const QPointer<frmMain> before = p.program->mainWindow();
        const QString file = p.shared->DatabasePath;
        QVERIFY(QFile::rename(file, file + u".away"_s));
        const auto refuseToSave = [&] {
            p.desktop.answerYesNo(
                u"'%1', the file of the collection, is not there any more: it was deleted or given another "
                u"name while this program was using it.\n\nNothing can be saved in it any more.  All that "
                u"was "
                "saved before is still known to this program, until it ends.\n\nDo you wish to save the "
                "collection in a new file, '%2'?"_s.arg(
                    file, QString(file).replace(u"coin.mdb"_s, u"coin-saved.mdb"_s)),
                u"Collection File"_s, Answer::No);
        };
        refuseToSave();
        gui::trigger(p.main(), u"mnuBackup"_s);
        QTest::qWait(1);
        QCOMPARE(p.program->mainWindow(), before);
        QVERIFY(p.shared->CoinDatabase);
        QCOMPARE(p.desktop.problems(), QStringList());
        QVERIFY(QFile::rename(file + u".away"_s, file));

        // Gone while the window is open.
        const QString folder = p.shared->AppFolder;
        p.desktop.setDrives({{QString(), folder, 1, true}});
        p.desktop.expectMessage(
            u"The database could not be backed up, because there is no file '%1' any more."_s.arg(file),
            u"Backup the Obelmark Database"_s);
        refuseToSave();
        QVERIFY(gui::withDialog(
            [&] {
                gui::trigger(p.main(), u"mnuBackup"_s);
                gui::waitUntil([&] { return !before && p.program->mainWindow(); }, "main window anew");
            },
            [&](QWidget &dialog) {
                QVERIFY(QFile::rename(file, file + u".away"_s));
                gui::click(gui::find<QPushButton>(dialog, u"cmdOk"_s));
            }));
        QCOMPARE(p.desktop.problems(), QStringList());
        QCOMPARE(p.shown(u"txtDescr"_s), u"Alpha"_s);
        QVERIFY(QFile::rename(file + u".away"_s, file));
    }

    void windowLeftOpen()
    {
        RunningProgram p;
        p.shared->CodesMode = Lookup::Countries;
        frmCodesMaint countries(*p.shared);
        countries.setAttribute(Qt::WA_DeleteOnClose, false);
        QVERIFY(gui::activate(countries) && gui::activate(p.main()));
        const QPointer<frmMain> before = p.program->mainWindow();
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(p.program->mainWindow(), before);
            p.desktop.answerYesNo(packQuestion, packTitle, answer);
            gui::trigger(p.main(), u"mnuPack"_s);
            QTest::qWait(1);
        }
        QVERIFY(gui::waitUntil([&] { return !before && p.program->mainWindow(); }, "packed"));
        QVERIFY(gui::activate(countries));
        p.desktop.expectMessage(closedDatabase);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, gui::find<QPushButton>(countries, u"cmdNext"_s).click());
        QCOMPARE(p.desktop.problems(), QStringList());
    }

    void oneReportDesignerAtATime()
    {
        EditorFixture e;
        e.start();
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QCOMPARE(e.desktop.surprises().size(), 1); // there is no catalogue
        QVERIFY(e.desktop.surprises().first().contains(u"rptspec.mdb"));
        e.desktop.reset();

        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), u"rptspec.mdb"_s));
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QPointer<frmRptSpec> designer = &e.windows->designer();
        QVERIFY(gui::activate(*designer));
        gui::find<QListWidget>(*designer, u"List1"_s).setCurrentRow(0);
        QVERIFY(gui::click(gui::find<QWidget>(*designer, u"cmdAdd"_s)));
        gui::activate(*e.window);
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QVERIFY(gui::activate(*designer));
        QCOMPARE(&e.windows->designer(), designer);
        QVERIFY(e.desktop.problems().isEmpty());

        // It is there until the program ends, which asks nothing.
        e.window->close();
        QVERIFY(designer && designer->isVisible());
        e.close();
        QVERIFY(!designer);
        QVERIFY(e.desktop.problems().isEmpty());
    }
};

QTEST_MAIN(ProgramTest)
#include "Program.moc"
