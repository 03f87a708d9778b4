// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every window can be used by who does not see it, has no mouse, or needs large letters.
#include "EditorFixture.h"
#include "WindowCheck.h"
#include "backup/windows/frmBackup.h"
#include "desktop/qt/HelpWindow.h"
#include "desktop/qt/RealDesktop.h"

using namespace obelmark;

namespace {

/// Looks at a window that is on screen and active.
using Look = std::function<void(QWidget &window)>;
/// Brings a window to the screen, in each of its states.
using LookAt = void (*)(EditorFixture &, const Look &);

const QString collectionSql =
    u"insert into boughtfrom (boudesc) values ('Thistle and Larch, Antiquities');"
    "with recursive n(i) as (select 1 union all select i + 1 from n where i < 150) "
    "insert into Coin (descr, catnum, year, quantity) select 'Half crown ' || i, 'KM ' || i, 1800 + i, 1 from n"_s;

QWidget *shownWindow(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible())
            return window;
    }
    return nullptr;
}

/// A window that a menu item shows beside the main window.
void lookAfter(EditorFixture &e, const QString &item, const QString &name, const Look &look)
{
    QVERIFY(gui::trigger(*e.window, item));
    QPointer<QWidget> window = shownWindow(name);
    QVERIFY2(window, qPrintable(name));
    QVERIFY(gui::activate(*window));
    look(*window);
    if (window)
        window->close();
}

void lookAtMain(EditorFixture &e, const Look &look)
{
    look(*e.window);
    e.typeInto(u"txtDescr"_s, u"Crown"_s);
    look(*e.window);
    e.press(u"cmdCancel"_s);
    e.press(u"cmdAddNew"_s);
    look(*e.window);
}

void lookAtSellers(EditorFixture &e, const Look &look)
{
    lookAfter(e, u"mnuMaint_6"_s, u"frmCodesMaint"_s, [&](QWidget &window) {
        look(window);
        gui::click(gui::find<QPushButton>(window, u"cmdAddNew"_s));
        look(window);
    });
}

void lookAtFind(EditorFixture &e, const Look &look)
{
    QVERIFY(gui::withDialog([&] { e.press(u"cmdFind"_s); },
                            [&](QWidget &window) {
                                auto &fields = gui::find<QListWidget>(window, u"lstField"_s);
                                QVERIFY(fields.count() > 5);
                                for (int row = 0; row < fields.count(); ++row) {
                                    fields.setCurrentRow(row);
                                    look(window);
                                }
                            }));
}

void lookAtReportSelection(EditorFixture &e, const Look &look)
{
    QVERIFY(gui::withDialog([&] { gui::trigger(*e.window, u"mnuRpt_2"_s); },
                            [&](QWidget &window) {
                                look(window);
                                gui::find<QAbstractButton>(window, u"optSelected"_s).click();
                                look(window);
                            }));
}

void lookAtPreview(EditorFixture &e, const Look &look)
{
    lookAfter(e, u"mnuRpt_1"_s, u"frmOutput"_s, [&](QWidget &window) {
        gui::press(Qt::Key_PageDown);
        look(window);
        gui::press(Qt::Key_F, Qt::ControlModifier);
        look(window);
    });
}

void lookAtDesigner(EditorFixture &e, const Look &look)
{
    lookAfter(e, u"mnuRptCustom"_s, u"frmRptSpec"_s, [&](QWidget &window) {
        look(window);
        auto &fields = gui::find<QListWidget>(window, u"List1"_s);
        while (fields.count() > 0) {
            fields.setCurrentRow(0);
            gui::click(gui::find<QWidget>(window, u"cmdAdd"_s));
            look(window);
        }
        e.desktop.answerYesNo(u"Do you wish to save the current report?"_s, u"Save Current Report"_s,
                              Answer::No);
    });
}

void lookAtPicture(EditorFixture &e, const Look &look)
{
    e.press(u"cmdPicture"_s);
    QWidget *window = shownWindow(u"frmImage"_s);
    QVERIFY(window && gui::activate(*window));
    look(*window);
}

void lookAtCalendar(EditorFixture &e, const Look &look)
{
    e.enter(u"dcIssueDate"_s);
    QVERIFY(gui::withDialog([&] { e.date(u"dcIssueDate"_s).showPopup(); }, look));
}

void lookAtBackup(EditorFixture &e, const Look &look)
{
    e.desktop.setDrives({{u"STICK"_s, u"/media/me/STICK"_s, 1'500'000, true}});
    QVERIFY(gui::withDialog([&] { frmBackup(*e.shared).exec(); }, look));
}

void lookAtAbout(EditorFixture &e, const Look &look)
{
    lookAfter(e, u"mnuAbout"_s, u"frmAbout"_s, look);
}

void lookAtHelp(EditorFixture &, const Look &look)
{
    HelpWindow window;
    window.setHelpFile(QStringLiteral(HELP_FILE));
    window.showContents();
    gui::activate(window);
    look(window);
}

/// The boxes of the real desktop: a message, a question, a text (the number of coins sold), progress.
void lookAtBoxes(EditorFixture &e, const Look &look)
{
    RealDesktop desktop;
    const QString text = u"You must enter a valid date, or leave the field blank."_s;
    QVERIFY(gui::withDialog([&] { desktop.showMessage(text); }, look));
    QVERIFY(gui::withDialog([&] { desktop.askYesNo(text, u"Compact Database"_s); }, look));
    QVERIFY(gui::withDialog([&] { desktop.askText(text, u"Sold Some"_s); }, look));
    const auto progress = desktop.showProgress(u"Backup"_s, true);
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() != "progress"_L1)
            continue;
        QVERIFY(gui::activate(*window));
        look(*window);
    }
    gui::activate(*e.window);
}

} // namespace

Q_DECLARE_METATYPE(LookAt)

class AccessibleWindowsTest : public QObject
{
    Q_OBJECT
private slots:
    void window_data()
    {
        QTest::addColumn<LookAt>("lookAt");
        QTest::addColumn<int>("fontSize"); // times the usual
        const std::pair<const char *, LookAt> windows[] = {
            {"main", lookAtMain},       {"sellers", lookAtSellers},
            {"find", lookAtFind},       {"report selection", lookAtReportSelection},
            {"preview", lookAtPreview}, {"designer", lookAtDesigner},
            {"picture", lookAtPicture}, {"calendar", lookAtCalendar},
            {"backup", lookAtBackup},   {"about", lookAtAbout},
            {"help", lookAtHelp},       {"boxes", lookAtBoxes},
        };
        for (const auto &[name, lookAt] : windows) {
            QTest::addRow("%s", name) << lookAt << 1;
            QTest::addRow("%s, large letters", name) << lookAt << 2;
        }
    }
    void window()
    {
        QFETCH(LookAt, lookAt);
        QFETCH(int, fontSize);
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([&] { QApplication::setFont(usual); });
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * fontSize);
        QApplication::setFont(font);

        EditorFixture e(collectionSql);
        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), u"rptspec.mdb"_s));
        e.start();
        QStringList complaints;
        int looks = 0;
        lookAt(e, [&](QWidget &window) {
            ++looks;
            complaints += complaintsAbout(window, fontSize);
        });
        complaints.removeDuplicates();
        QVERIFY(looks > 0);
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
        QVERIFY2(e.desktop.problems().isEmpty(), qPrintable(e.desktop.problems().join(u'\n')));
    }

    void reportIsHeard()
    {
        EditorFixture e(collectionSql);
        e.start();
        lookAfter(e, u"mnuRpt_1"_s, u"frmOutput"_s, [](QWidget &window) {
            const auto heard = [&window] {
                auto *pages = QAccessible::queryAccessibleInterface(window.focusWidget());
                return pages->text(QAccessible::Description).split(u'\n');
            };
            QCOMPARE(heard().first(2),
                     QStringList({u"Coin List"_s, u"Description\tCat #\tFace Value\tYear\tQuantity"_s}));
            const QString first = u"Half crown 1\tKM 1\t\t1801\t1"_s;
            QCOMPARE(heard().at(2), first);
            gui::press(Qt::Key_PageDown);
            QVERIFY(heard().size() > 10 && !heard().contains(first));
        });
    }

    void keysTurnThePages()
    {
        EditorFixture e(collectionSql);
        e.start();
        const auto &tabs = e.the<QTabWidget>(u"Tab1"_s);
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, int, const char16_t *> presses[] = {
            {Qt::Key_Tab, Qt::ControlModifier, 1, u"cmbBou"},
            {Qt::Key_PageDown, Qt::ControlModifier, 2, u"txtNotes"},
            {Qt::Key_Tab, Qt::ControlModifier, 0, u"cmbCon"},
            {Qt::Key_PageUp, Qt::ControlModifier, 2, u"txtNotes"},
            {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 1, u"cmbBou"},
        };
        for (const auto &[key, modifiers, page, field] : presses) {
            gui::press(key, modifiers);
            QCOMPARE(tabs.currentIndex(), page);
            QCOMPARE(e.window->focusWidget()->objectName(), QString::fromUtf16(field));
        }
        QVERIFY(e.isBrowsing());
    }

    void keysChooseTheFirstEntry()
    {
        EditorFixture e(collectionSql);
        e.start();
        QVERIFY(gui::withDialog([&] { gui::trigger(*e.window, u"mnuRpt_3"_s); },
                                [&](QWidget &dialog) {
                                    auto &list = gui::find<QListWidget>(dialog, u"List1"_s);
                                    gui::find<QAbstractButton>(dialog, u"optSelected"_s).click();
                                    QVERIFY(gui::focusByTab(list));
                                    QVERIFY(list.selectedItems().isEmpty());
                                    gui::press(Qt::Key_Home);
                                    QCOMPARE(list.selectedItems(), QList{list.item(0)});
                                }));
    }

    void desktopTurnsDark()
    {
        EditorFixture e(collectionSql);
        e.start();
        const QPalette usual = QApplication::palette();
        const auto restore = qScopeGuard([&] { QApplication::setPalette(usual); });
        QApplication::setPalette(QPalette(QColor(40, 40, 40), QColor(30, 30, 30)));
        QTest::qWait(1);
        const QPalette colours = e.edit(u"txtTotalPaid"_s).palette();
        QCOMPARE(colours.color(QPalette::Base), QColor(30, 30, 30));
        QVERIFY(colours.color(QPalette::Text).lightness() > 150);
    }
};

QTEST_MAIN(AccessibleWindowsTest)
#include "AccessibleWindows.moc"
