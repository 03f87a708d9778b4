// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>

class QLabel;

namespace obelmark {

class CoinFields;
class Dynaset;
class EditButtons;
class EntryWatch;
class MoneyFields;
class StatusText;
enum class EditState;
enum class Move;
class frmAbout;
struct Changes;
struct ProgramWindows;
struct SharedState;
namespace Ui {
class frmMain;
}

/// The main window: opens the coin database, carries the menu bar, and is itself the editor of one coin at a
/// time.
///
/// What its fields are at the moment, EditState tells; the row that they show is the current one of
/// CoinRecordset.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    frmMain(SharedState &shared, ProgramWindows &windows);
    ~frmMain() override;

    /// Start-up: learns the date format, sets the shared state, opens the database and shows the first coin.
    /// To be called once, before the window is shown.
    void Form_Load();

    /// Closes CoinRecordset and CoinDatabase; an edit that has not been saved is dropped.
    void Form_Unload();

    /// Has the user told and asked when the file of the database has been taken away.
    void requireFile();

    /// Enters the editing state when the editor is browsing; called by every change that the user makes.
    void MakingChange();

signals:
    /// The window has been closed and has let go of the database.
    void unloaded();
    /// The database is to be backed up, or packed, which needs this window unloaded.
    void backupWanted();
    void packWanted();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    // Start-up, activation, menus (frmMain.cpp)
    void limitWidths();
    void fillStatusBar();
    void connectMenus();
    void colourTotals();
    void connectButtons();
    void connectFields();
    void Form_Activate();
    void mnuPack_Click();
    void mnuRptCustom_Click();
    void mnuSort_Click(int index);
    void mnuMaint_Click(int index);
    void mnuRptOut_Click(int index);
    void connectReports();
    void mnuRpt_Click(int index);
    void mnuHelp_Click(int index);
    void mnuAbout_Click();
    void mnuExit_Click();

    // Display, navigation and editing (frmMainEditing.cpp)
    void ShowCoinRecord();
    void showPosition();
    void ClearCoinFields();
    void showEmptyTable();
    void DisableCoinFields();
    void EnableCoinFields();
    void ShowCoinEditButtons();
    void ShowCoinBrowseButtons();
    bool ValidateCoin();
    void SaveCoinRecord();
    void browseTo(Move direction);
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdFind_Click();
    void cmdAddNew_Click();
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdDelete_Click();
    void cmdSoldSome_Click();
    void chkSold_Click();
    void chkWantList_Click();
    void cmdPicture_Click();
    void connectPictureWindow();
    void deletePictureFile(const QString &file);
    void returnToBrowsing();
    void beginCoin();
    void showChangesOfOthers(const Changes &changes);
    /// What is left of saving once the coin is in the file.
    void finishSaving(qint64 key);

    /// Runs an event's procedure; what it does not handle itself goes to the shared error handler.
    void run(const std::function<void()> &procedure);
    void resumeAfterRepair();
    Dynaset &coins();
    /// Fills fields from code, whose change signals are not to be taken for the user's.
    void fillFields(const std::function<void()> &fill);

    SharedState &m_shared;
    ProgramWindows &m_windows;
    std::unique_ptr<Ui::frmMain> m_ui;
    std::unique_ptr<CoinFields> m_fields;
    std::unique_ptr<EditButtons> m_buttons;
    EntryWatch *m_watch = nullptr;
    MoneyFields *m_money = nullptr;
    QPointer<frmAbout> m_about;

    /// Shows the place in the collection when everything else is on the screen: it may have to be counted.
    QTimer m_positionTimer;
    QLabel *m_position = nullptr;
    /// The folder of the collection or, while there is one, the hint on what is being typed.
    StatusText *m_note = nullptr;

    EditState m_state{};
    qint64 m_shownCoinId = 0;
    qint64 m_savedCoinId = 0;   ///< in the file already, though its saving has not come to its end
    bool m_addsAnother = false; ///< the saving began with Add Another
    int m_seenRepairs = 0;
    int m_seenChanges = 0;
};

} // namespace obelmark
