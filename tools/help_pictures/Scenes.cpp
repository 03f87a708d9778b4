// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Scenes.h"

#include "Stage.h"
#include "WindowPicture.h"
#include "dates/windows/DateField.h"
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A picture of the dialog that \a open brings up, when \a fill has filled it in.
QImage dialogPicture(const std::function<void()> &open, const std::function<void(QWidget &)> &fill = {})
{
    QImage picture;
    gui::withDialog(open, [&](QWidget &dialog) {
        if (fill)
            fill(dialog);
        picture = pictureOf(dialog);
    });
    return picture;
}

QImage mainPage(Stage &stage, const QString &coin, int page)
{
    stage.showCoin(coin);
    stage.turnTo(stage.main(), page);
    return pictureOf(stage.main());
}

QImage mainGeneral(Stage &stage)
{
    return mainPage(stage, u"doubled die obverse"_s, 0);
}

QImage mainPrices(Stage &stage)
{
    return mainPage(stage, u"Morgan dollars, a roll"_s, 1);
}

QImage mainNotes(Stage &stage)
{
    return mainPage(stage, u"doubled die obverse"_s, 2);
}

/// The main window with a menu of its bar open, down to a little below the menu.
QImage openMenu(Stage &stage, const QString &name)
{
    auto &menu = gui::find<QMenu>(stage.main(), name);
    auto &bar = *stage.main().menuBar();
    menu.popup(bar.mapToGlobal(bar.actionGeometry(menu.menuAction()).bottomLeft()));
    const QImage picture = pictureOf(stage.main(), {&menu});
    const int below = menu.geometry().bottom() - stage.main().geometry().top();
    menu.close();
    constexpr int margin = 56;
    return picture.copy(0, 0, picture.width(), std::min(picture.height(), below + margin));
}

QImage addingCoin(Stage &stage)
{
    const QWidget &main = stage.main();
    stage.press(u"cmdAddNew"_s);
    stage.type(main, u"txtDescr"_s, u"Trade dollar"_s);
    stage.type(main, u"txtCatNum"_s, u"KM 108"_s);
    stage.type(main, u"txtFace"_s, u"1"_s);
    stage.type(main, u"txtYear"_s, u"1877"_s);
    stage.choose(main, u"cmbCon"_s, u"20 Very Fine"_s);
    stage.choose(main, u"cmbCou"_s, u"United States"_s);
    stage.choose(main, u"cmbMin"_s, u"San Francisco (S)"_s);
    stage.type(main, u"txtMetal"_s, u"Silver .900"_s);
    return pictureOf(stage.main());
}

QImage calendar(Stage &stage)
{
    stage.showCoin(u"Morgan dollars, a roll"_s);
    stage.turnTo(stage.main(), 1);
    auto &date = gui::find<DateField>(stage.main(), u"dcPurchaseDate"_s);
    return dialogPicture([&] { date.showPopup(); });
}

QImage soldSome(Stage &stage)
{
    stage.showCoin(u"Morgan dollars, a roll"_s);
    stage.turnTo(stage.main(), 1);
    return dialogPicture([&] { stage.press(u"cmdSoldSome"_s); }, [](QWidget &) { gui::type(u"5"_s); });
}

QImage findByText(Stage &stage)
{
    return dialogPicture([&] { stage.press(u"cmdFind"_s); },
                         [&](QWidget &dialog) {
                             dialog.resize(widest, dialog.height());
                             stage.choose(dialog, u"lstField"_s, u"Description"_s);
                             stage.choose(dialog, u"lstText"_s, u"Contains"_s);
                             stage.type(dialog, u"txtToFind"_s, u"doubled die"_s);
                         });
}

QImage findInList(Stage &stage)
{
    return dialogPicture([&] { stage.press(u"cmdFind"_s); },
                         [&](QWidget &dialog) {
                             dialog.resize(widest, dialog.height());
                             stage.choose(dialog, u"lstField"_s, u"Country"_s);
                             stage.choose(dialog, u"lstSel"_s, u"France"_s);
                         });
}

QImage coinPicture(Stage &stage)
{
    stage.showCoin(u"Penny, Edward VIII"_s);
    stage.press(u"cmdPicture"_s);
    QWidget &window = stage.window(u"frmImage"_s);
    window.resize(460, 320);
    QTest::qWait(1);
    return pictureOf(window);
}

QImage seller(Stage &stage)
{
    stage.trigger(u"mnuMaint_6"_s);
    QWidget &window = stage.window(u"frmCodesMaint"_s);
    const auto &name = gui::find<QLineEdit>(window, u"txtDesc"_s);
    for (int step = 0; step < 20 && name.text() != u"Hollow Oak Coins"; ++step)
        stage.press(window, u"cmdNext"_s);
    return pictureOf(window);
}

QImage newMint(Stage &stage)
{
    stage.trigger(u"mnuMaint_5"_s);
    QWidget &window = stage.window(u"frmCodesMaint"_s);
    window.resize(window.minimumSizeHint());
    stage.press(window, u"cmdAddNew"_s);
    stage.type(window, u"txtDesc"_s, u"Pretoria"_s);
    return pictureOf(window);
}

QImage reportSelection(Stage &stage)
{
    return dialogPicture([&] { stage.trigger(u"mnuRpt_3"_s); },
                         [&](QWidget &dialog) {
                             stage.press(dialog, u"optSelected"_s);
                             stage.choose(dialog, u"List1"_s, u"France"_s);
                         });
}

QImage reportWindow(Stage &stage)
{
    stage.trigger(u"mnuRptValue"_s);
    QWidget &window = stage.window(u"frmOutput"_s);
    window.resize(widest, 400);
    QTest::qWait(1);
    return pictureOf(window);
}

/// The designer with the report that the help explains step by step: French coins from before 1800.
QWidget &designer(Stage &stage)
{
    stage.trigger(u"mnuRptCustom"_s);
    QWidget &window = stage.window(u"frmRptSpec"_s);
    window.resize(window.minimumSizeHint());
    const auto add = [&](const QString &field) {
        stage.choose(window, u"List1"_s, field);
        stage.press(window, u"cmdAdd"_s);
        stage.choose(window, u"List2"_s, field);
    };
    add(u"Year"_s);
    stage.type(window, u"txtLess"_s, u"1800"_s);
    add(u"Description"_s);
    add(u"Condition"_s);
    add(u"Total Paid"_s);
    stage.press(window, u"chkTotal"_s);
    add(u"Country"_s);
    stage.type(window, u"txtStarting"_s, u"France"_s);
    stage.press(window, u"chkHide"_s);
    for (const QString &box : {u"Want List"_s, u"Sold"_s}) {
        add(box);
        stage.press(window, u"optFalse"_s);
        stage.press(window, u"chkHide"_s);
    }
    stage.choose(window, u"List2"_s, u"Year"_s);
    stage.turnTo(window, 1);
    stage.type(window, u"txtTitle"_s, u"French coins before 1800"_s);
    stage.turnTo(window, 2);
    stage.choose(window, u"cmbSort1"_s, u"Year"_s);
    return window;
}

QImage designerPage(Stage &stage, int page)
{
    QWidget &window = designer(stage);
    stage.turnTo(window, page);
    return pictureOf(window);
}

QImage backup(Stage &stage)
{
    return dialogPicture([&] { stage.trigger(u"mnuBackup"_s); });
}

QImage packQuestion(Stage &stage)
{
    return dialogPicture([&] { stage.trigger(u"mnuPack"_s); });
}

QImage helpWindow(Stage &stage)
{
    stage.trigger(u"mnuHelp_2"_s);
    QWidget &window = stage.window(u"frmHelp"_s);
    window.resize(widest, 360);
    gui::find<QSplitter>(window, u"splitter"_s).setSizes({200, 340});
    stage.type(window, u"txtSearch"_s, u"want list"_s);
    // A page without pictures: they would be those of before.
    stage.choose(window, u"lstHits"_s, u"Want List"_s);
    return pictureOf(window);
}

} // namespace

const std::initializer_list<Scene> scenes = {
    {"main-general.png", mainGeneral},
    {"main-prices.png", mainPrices},
    {"main-notes.png", mainNotes},
    {"adding.png", addingCoin},
    {"menu-sort.png", [](Stage &stage) { return openMenu(stage, u"mnuSortMenu"_s); }},
    {"menu-maintain.png", [](Stage &stage) { return openMenu(stage, u"mnuMaintain"_s); }},
    {"menu-reports.png", [](Stage &stage) { return openMenu(stage, u"mnuReportsMenu"_s); }},
    {"calendar.png", calendar},
    {"sold-some.png", soldSome},
    {"find-text.png", findByText},
    {"find-list.png", findInList},
    {"picture.png", coinPicture},
    {"seller.png", seller},
    {"new-mint.png", newMint},
    {"report-selection.png", reportSelection},
    {"report-window.png", reportWindow},
    {"designer-fields.png", [](Stage &stage) { return designerPage(stage, 0); }},
    {"designer-options.png", [](Stage &stage) { return designerPage(stage, 1); }},
    {"designer-sorting.png", [](Stage &stage) { return designerPage(stage, 2); }},
    {"backup.png", backup},
    {"pack.png", packQuestion},
    {"help.png", helpWindow},
};

} // namespace obelmark
