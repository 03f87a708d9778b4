// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor's side of the main window: showing, moving, adding, changing and deleting coins.
#include "coins/CoinRules.h"
#include "coins/WriteStep.h"
#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "desktop/Desktop.h"
#include "editor/CoinFields.h"
#include "editor/LookupList.h"
#include "editor/MoneyFields.h"
#include "editor/ProgramWindows.h"
#include "editor/SoldSome.h"
#include "editor/frmMain.h"
#include "find/windows/frmFind.h"
#include "forms/Browsing.h"
#include "forms/EditButtons.h"
#include "forms/EntryWatch.h"
#include "forms/PlaceBeside.h"
#include "pictures/NewPictureFile.h"
#include "pictures/PictureFiles.h"
#include "pictures/frmImage.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include "ui_frmMain.h"
#include <QLabel>
#include <QScopeGuard>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QString keyCriteria(qint64 coinId)
{
    return u"CoinID = %1"_s.arg(coinId);
}

} // namespace

void frmMain::run(const std::function<void()> &procedure)
{
    if (m_watch->isRefusalPending())
        return;
    try {
        attempt(m_shared, procedure);
    } catch (const DatabaseRepaired &) {
        run([this] { resumeAfterRepair(); });
    }
}

// CoinRecordset is a new one on its first row. A coin that was being saved and has got into the file is shown
// as saved. What the user was typing is kept: a changed coin goes on being changed, and when the damage has
// cost it its row, or the row may be that of another coin now, it goes on as a new one.
void frmMain::resumeAfterRepair()
{
    const bool isOpenedAnew =
        std::exchange(m_seenRepairs, m_shared.DatabaseRepairs) != m_shared.DatabaseRepairs;
    const bool isChanged = std::exchange(m_seenChanges, m_shared.DatabaseChanges) != m_shared.DatabaseChanges;
    const qint64 saved = std::exchange(m_savedCoinId, 0);
    coins().findFirst(keyCriteria(saved ? saved : m_shownCoinId));
    if (isOpenedAnew && saved && !coins().noMatch()) {
        m_shared.PictureChanged = false;
        finishSaving(saved);
    } else if (m_state == EditState::Editing) {
        if (isChanged || coins().noMatch()) {
            m_state = EditState::Adding;
            ShowCoinEditButtons();
        }
    } else if (m_state == EditState::Browsing) {
        if (coins().isEmpty())
            showEmptyTable();
        else
            ShowCoinRecord();
    }
}

void frmMain::showChangesOfOthers(const Changes &changes)
{
    if (isActiveWindow())
        Form_Activate();
    if (m_state != EditState::Browsing || !changes.touches(u"Coin"))
        return;
    coins().findFirst(keyCriteria(m_shownCoinId));
    if (coins().noMatch() && !moveToNeighbour(coins())) {
        showEmptyTable();
        return;
    }
    EnableCoinFields();
    ShowCoinRecord();
}

void frmMain::requireFile()
{
    run([this] {
        if (m_shared.CoinDatabase)
            m_shared.CoinDatabase->requireInPlace();
    });
}

Dynaset &frmMain::coins()
{
    return coinRecordset(m_shared);
}

void frmMain::fillFields(const std::function<void()> &fill)
{
    const bool isAdding = std::exchange(m_state, EditState::Filling) == EditState::Adding;
    const auto done = qScopeGuard([&] { m_state = isAdding ? EditState::Adding : EditState::Browsing; });
    fill();
}

void frmMain::ShowCoinRecord()
{
    fillFields([&] {
        const Coin coin = readCoin(coins());
        m_fields->show(coin);
        m_shownCoinId = coin.coinid;
        m_positionTimer.start(0);
        frmImage *image = m_windows.madeImage();
        if (!image)
            return;
        image->setHasCoin(true);
        if (image->isVisible())
            image->showCoin(m_shownCoinId, frmImage::OldFile::Convert);
        else
            image->clear();
    });
}

void frmMain::showPosition()
{
    QString text;
    if (m_state == EditState::Adding)
        text = u"New coin"_s;
    else if (coins().isEmpty())
        text = u"No coins"_s;
    else if (const qint64 position = coins().position())
        text = u"Coin %L1 of %L2"_s.arg(position).arg(coins().recordCount());
    m_position->setText(text);
}

void frmMain::ClearCoinFields()
{
    m_positionTimer.start(0);
    fillFields([&] { m_fields->clear(); });
    if (frmImage *image = m_windows.madeImage()) {
        image->clear();
        image->setHasCoin(true);
    }
}

void frmMain::showEmptyTable()
{
    ClearCoinFields();
    DisableCoinFields();
}

void frmMain::DisableCoinFields()
{
    m_fields->setEnabled(false);
    if (frmImage *image = m_windows.madeImage())
        image->setHasCoin(false);
}

void frmMain::EnableCoinFields()
{
    m_fields->setEnabled(true);
}

void frmMain::MakingChange()
{
    if (m_state != EditState::Browsing)
        return;
    m_state = EditState::Editing;
    ShowCoinEditButtons();
}

void frmMain::ShowCoinEditButtons()
{
    m_buttons->show(m_state);
    for (QAction *item : {m_ui->mnuSort_1, m_ui->mnuSort_2, m_ui->mnuSort_3, m_ui->mnuExit})
        item->setEnabled(false);
}

void frmMain::ShowCoinBrowseButtons()
{
    m_buttons->show(EditState::Browsing);
    for (QAction *item : {m_ui->mnuSort_1, m_ui->mnuSort_2, m_ui->mnuSort_3, m_ui->mnuExit})
        item->setEnabled(true);
}

void frmMain::returnToBrowsing()
{
    ShowCoinBrowseButtons();
    m_state = EditState::Browsing;
}

void frmMain::browseTo(Move direction)
{
    if (browse(coins(), direction, m_shared.desktop))
        ShowCoinRecord();
}

void frmMain::cmdFirst_Click()
{
    browseTo(Move::First);
}

void frmMain::cmdPrevious_Click()
{
    browseTo(Move::Previous);
}

void frmMain::cmdNext_Click()
{
    browseTo(Move::Next);
}

void frmMain::cmdLast_Click()
{
    browseTo(Move::Last);
}

void frmMain::cmdFind_Click()
{
    if (coins().isEmpty()) {
        m_shared.desktop.showMessage(u"No coins entered to find."_s, u"No Coins in Database"_s);
        return;
    }
    const QString shown = keyCriteria(coins().value(u"coinid").toInt());
    m_shared.UseWith = u"coin"_s;
    m_shared.FindCancelled = true;
    try {
        m_windows.find().showModal(*this);
    } catch (const CatalogueError &error) {
        m_shared.desktop.showMessage(error.message());
    }
    if (m_shared.FindCancelled)
        coins().findFirst(shown);
    if (coins().noMatch()) {
        m_shared.desktop.showMessage(u"That coin was not found."_s, u"No Records Match"_s);
        coins().findFirst(shown);
    } else {
        ShowCoinRecord();
    }
}

void frmMain::cmdAddNew_Click()
{
    if (m_state == EditState::Adding) {
        if (!m_watch->commitEnteredField() || !ValidateCoin())
            return;
        m_addsAnother = true;
        attempt(m_shared, [&] { coins().addNew(); });
        SaveCoinRecord();
    } else {
        m_state = EditState::Adding;
        if (!coins().isEmpty())
            attempt(m_shared, [&] { coins().moveLast(); });
        else
            EnableCoinFields();
        ShowCoinEditButtons();
    }
    beginCoin();
}

void frmMain::beginCoin()
{
    m_savedCoinId = 0;
    ClearCoinFields();
    EntryWatch::focusField(m_ui->txtDescr);
}

void frmMain::cmdUpdate_Click()
{
    if (!m_watch->commitEnteredField() || !ValidateCoin())
        return;
    m_addsAnother = false;
    qint64 key = 1;
    if (m_state == EditState::Adding) {
        attempt(m_shared, [&] { coins().addNew(); });
        attempt(m_shared, [&] {
            const Value counter = coins().value(u"coinid");
            key = counter.isNull() ? 1 : counter.toInt();
        });
        SaveCoinRecord();
    } else {
        attempt(m_shared, [&] { key = coins().value(u"coinid").toInt(); });
        attempt(m_shared, [&] { coins().edit(); });
        SaveCoinRecord();
    }
    finishSaving(key);
}

void frmMain::finishSaving(qint64 key)
{
    if (m_addsAnother) {
        beginCoin();
        return;
    }
    attempt(m_shared, [&] {
        coins().findFirst(keyCriteria(key));
        if (coins().noMatch())
            coins().moveFirst();
    });
    attempt(m_shared, [&] { ShowCoinRecord(); });
    m_savedCoinId = 0;
    returnToBrowsing();
}

void frmMain::cmdCancel_Click()
{
    if (!coins().isEmpty()) {
        coins().moveLast();
        ShowCoinRecord();
    } else {
        showEmptyTable();
    }
    returnToBrowsing();
    m_shared.PictureChanged = false;
}

void frmMain::cmdDelete_Click()
{
    if (coins().isEmpty())
        return;
    const auto answer = m_shared.desktop.askYesNo(u"Are you sure that you want to delete this Coin record?"_s,
                                                  u"Delete Coin"_s);
    if (answer == Desktop::Answer::No)
        return;
    // The picture goes when its coin is surely gone.
    QString picture;
    QString name;
    attempt(m_shared, [&] {
        const Coin coin = readCoin(coins());
        name = coinName(coin);
        picture = findPictureFile(m_shared.AppFolder, coin.coinid);
    });
    WriteStep step(m_shared, StepKind::Delete, u"Delete '%1'"_s.arg(name), this);
    if (step.remove(coins()))
        step.commit([&] { deletePictureFile(picture); });
    attempt(m_shared, [&] {
        if (moveToNeighbour(coins()))
            ShowCoinRecord();
        else
            showEmptyTable();
    });
}

void frmMain::cmdSoldSome_Click()
{
    if (sellSome(*m_fields, m_shared, *this))
        ShowCoinRecord();
}

void frmMain::cmdPicture_Click()
{
    frmImage &image = m_windows.image();
    connectPictureWindow();
    if (!image.testAttribute(Qt::WA_WState_ExplicitShowHide))
        placeBeside(image, *this);
    image.setWindowState(image.windowState() & ~Qt::WindowMinimized);
    image.show();
    image.raise();
    image.activateWindow();
    const bool hasCoin = !coins().isEmpty();
    image.setHasCoin(hasCoin);
    if (hasCoin)
        image.showCoin(coins().value(u"coinid").toInt(), frmImage::OldFile::Keep);
    else
        image.clear();
}

void frmMain::connectPictureWindow()
{
    if (const frmImage *image = m_windows.madeImage())
        connect(image, &frmImage::changing, this, &frmMain::MakingChange, Qt::UniqueConnection);
}

void frmMain::deletePictureFile(const QString &file)
{
    if (!file.isEmpty() && !deletePicture(file))
        m_shared.desktop.showMessage(u"The picture file '%1' could not be deleted."_s.arg(file));
}

bool frmMain::ValidateCoin()
{
    const auto broken = obelmark::ValidateCoin(m_fields->coinToCheck());
    if (!broken)
        return true;
    m_shared.desktop.showMessage(broken->message, broken->title);
    EntryWatch::focusField(m_fields->widget(broken->column));
    return false;
}

void frmMain::SaveCoinRecord()
{
    const bool isNew = m_state == EditState::Adding;
    m_money->roundQuantity();
    Coin coin;
    attempt(m_shared, [&] {
        coin = m_fields->coin();
        writeCoin(coins(), coin);
    });
    qint64 key = 0;
    std::unique_ptr<NewPictureFile> picture;
    attempt(m_shared, [&] {
        key = coins().value(u"coinid").toInt();
        if (isNew)
            setAsideStrayPictures(m_shared, key);
        if (m_shared.PictureChanged)
            picture = m_windows.image().writeNewPicture(key);
    });
    const QString what = isNew ? u"Add '%1'"_s : u"Change '%1'"_s;
    WriteStep step(m_shared, isNew ? StepKind::Add : StepKind::Change, what.arg(coinName(coin)), this);
    if (step.update(coins()))
        step.commit([&] {
            m_savedCoinId = key;
            if (picture)
                m_windows.image().placeNewPicture(*picture, key);
        });
    m_shared.PictureChanged = false;
}

void frmMain::chkSold_Click()
{
    if (m_state != EditState::Filling && m_ui->chkSold->isChecked() && m_ui->chkForSale->isChecked())
        m_ui->chkForSale->setChecked(false);
}

void frmMain::chkWantList_Click()
{
    const QString caption = m_ui->chkWantList->isChecked() ? u"Will Pay"_s : u"Price Paid"_s;
    m_ui->lblPrice->setText(caption);
    m_ui->txtPricePaid->setAccessibleName(caption);
}

} // namespace obelmark
