// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/frmMain.h"

#include "backup/Packing.h"
#include "coins/IssueDate.h"
#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "common/TextHelpers.h"
#include "custom_reports/windows/frmRptSpec.h"
#include "dates/DateFormat.h"
#include "dates/windows/DateField.h"
#include "dates/windows/DatePicker.h"
#include "desktop/Desktop.h"
#include "editor/CoinFields.h"
#include "editor/EntryHints.h"
#include "editor/LookupList.h"
#include "editor/LookupLists.h"
#include "editor/MoneyFields.h"
#include "editor/ProgramWindows.h"
#include "editor/frmAbout.h"
#include "forms/AccessKeys.h"
#include "forms/EditButtons.h"
#include "forms/EntryWatch.h"
#include "forms/FirstSize.h"
#include "forms/HelpKey.h"
#include "forms/PageKeys.h"
#include "forms/StatusText.h"
#include "lookups/frmCodesMaint.h"
#include "old_collections/TakeOver.h"
#include "pictures/PictureFiles.h"
#include "pictures/frmImage.h"
#include "runtime/Dates.h"
#include "runtime/SafeFile.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include "ui_frmMain.h"
#include <QActionGroup>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QScopeGuard>
#include <QStatusBar>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// The tab stops in their order; the total fields are none.
QList<QWidget *> tabOrder(const Ui::frmMain &ui)
{
    return {ui.txtDescr,       ui.txtCatNum,   ui.txtFace,    ui.txtYear,     ui.chkWantList, ui.txtQuantity,
            ui.cmbCon,         ui.cmbCou,      ui.cmbMin,     ui.cmbCat,      ui.cmbTyp,      ui.cmbFor,
            ui.txtSerNum,      ui.txtMetal,    ui.txtErrors,  ui.dcIssueDate, ui.cmbBou,      ui.txtPricePaid,
            ui.dcPurchaseDate, ui.txtCatValue, ui.dcSoldDate, ui.chkForSale,  ui.chkSold,     ui.txtPriceAsk,
            ui.cmdSoldSome,    ui.txtNotes,    ui.txtMisc1,   ui.txtMisc2,    ui.Tab1,        ui.cmdFirst,
            ui.cmdPrevious,    ui.cmdNext,     ui.cmdLast,    ui.cmdAddNew,   ui.cmdDelete,   ui.cmdFind,
            ui.cmdCancel,      ui.cmdUpdate,   ui.cmdPicture};
}

struct DateRow
{
    DateField *Ui::frmMain::*field;
    /// The title of the calendar.
    const char16_t *caption;
    /// The message when a text that is no date is left; the purchase date has no check.
    const char16_t *message;
};

constexpr DateRow dateTable[] = {
    {&Ui::frmMain::dcIssueDate, u"Select Issue Date",
     u"You must enter a valid issue date, or leave the field blank."},
    {&Ui::frmMain::dcPurchaseDate, u"Select Purchase Date", nullptr},
    {&Ui::frmMain::dcSoldDate, u"Select Sold Date",
     u"You must enter a valid sold date, or leave the field blank."},
};

/// Whether the Tab key may stop here now: hidden buttons and disabled fields are passed over, hidden pages
/// not.
bool isTabStop(const QWidget &widget)
{
    return widget.isEnabled() && !widget.isHidden();
}

/// Which collection this is: it may be the sample, or one of several, or saved in a file of another name.
QString shownPlace(const SharedState &shared)
{
    const QString folder = QDir(shared.AppFolder).absolutePath();
    const QFileInfo file(shared.DatabasePath);
    const bool isUsual =
        file.absolutePath() == folder && file.fileName().compare("coin.mdb"_L1, Qt::CaseInsensitive) == 0;
    return QDir::toNativeSeparators(isUsual ? folder : file.absoluteFilePath());
}

} // namespace

/// Paths are kept as text, and there are names that are none.
static void requireReadableName(const QString &folder)
{
    if (!QDir(folder).exists())
        throw NumberedError(
            PathNotFound, u"The folder '%1' cannot be used: its name is not written in UTF-8."_s.arg(folder));
}

frmMain::frmMain(SharedState &shared, ProgramWindows &windows)
    : m_shared(shared), m_windows(windows), m_ui(std::make_unique<Ui::frmMain>())
{
    m_ui->setupUi(this);
    new AccessKeys(*this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    addPageKeys(*m_ui->Tab1);
    limitWidths();
    fillStatusBar();
    setFirstSize(*this);
    m_fields = std::make_unique<CoinFields>(*m_ui, shared);
    m_buttons = std::make_unique<EditButtons>(*m_ui, QList{m_ui->cmdPicture, m_ui->cmdSoldSome});
    m_watch = new EntryWatch(*this, shared.desktop, [&shared](const auto &rule) { attempt(shared, rule); });
    m_money = new MoneyFields(*this, *m_ui, *m_fields, *m_watch, shared);
    connectFields();
    const auto *hints = new EntryHints(*this, *m_fields, *m_watch);
    connect(hints, &EntryHints::told, this, [this](const QString &sentence) {
        m_note->tell(sentence.isEmpty() ? shownPlace(m_shared) : sentence);
    });
    connectButtons();
    connectMenus();
    connectPictureWindow();
    connect(&shared.changes, &CollectionSignal::changed, this, [this](const Changes &changes) {
        // Of a file that has been opened anew the window learns as DatabaseRepaired or when it comes to the
        // front.
        if (changes.by != this && !changes.everything)
            run([&] { showChangesOfOthers(changes); });
    });
}

frmMain::~frmMain() = default;

/// In a window as wide as the screen fields of numbers would be hard to find at its far end.
void frmMain::limitWidths()
{
    const std::pair<QWidget *, int> mostDigits[] = {
        {m_ui->txtFace, 18},        {m_ui->txtYear, 10},      {m_ui->txtQuantity, 12},
        {m_ui->txtPricePaid, 32},   {m_ui->txtTotalPaid, 32}, {m_ui->txtCatValue, 32},
        {m_ui->txtTotalVal, 32},    {m_ui->txtPriceAsk, 32},  {m_ui->txtTotalSales, 32},
        {m_ui->dcPurchaseDate, 32}, {m_ui->dcSoldDate, 32},
    };
    for (const auto &[field, digits] : mostDigits)
        field->setMaximumWidth(digits * fontMetrics().horizontalAdvance(u'0'));
}

void frmMain::fillStatusBar()
{
    m_position = new QLabel(this);
    m_position->setObjectName(u"lblPosition"_s);
    m_note = new StatusText(u"lblNote"_s, this);
    // Under the fields, not at the window's edge.
    const QMargins margins = m_ui->layMain->contentsMargins();
    statusBar()->setContentsMargins(margins.left(), 0, 0, 0);
    m_note->setIndent(2 * margins.left());
    statusBar()->addWidget(m_position);
    statusBar()->addWidget(m_note, 1);
}

void frmMain::connectFields()
{
    m_positionTimer.setSingleShot(true);
    connect(&m_positionTimer, &QTimer::timeout, this, [this] {
        // While a damaged file is being repaired there are no coins, but the clock goes on.
        if (m_shared.CoinRecordset)
            run([&] { showPosition(); });
    });
    m_fields->onChange(this, [this] { MakingChange(); });
    colourTotals();
    connect(m_ui->chkSold, &QCheckBox::toggled, this, &frmMain::chkSold_Click);
    connect(m_ui->chkWantList, &QCheckBox::toggled, this, &frmMain::chkWantList_Click);

    for (const DateRow &row : dateTable) {
        DateField *field = m_ui.get()->*row.field;
        connect(field, &DateField::dropDown, this, [this, field, caption = row.caption] {
            run([&] {
                const Date start = field == m_ui->dcIssueDate
                                       ? issueDateStart(field->text(), m_ui->txtYear->text(), m_shared)
                                       : dateOrToday(field->text(), m_shared.regional);
                pickDateFor(*field, QString::fromUtf16(caption), start, m_shared);
            });
        });
        if (!row.message)
            continue;
        const QString message = QString::fromUtf16(row.message);
        m_watch->watch(field, {{},
                               [this, field, message]() -> std::optional<EntryWatch::Refusal> {
                                   if (field->text().isEmpty() || isDate(field->text(), m_shared.regional))
                                       return {};
                                   return EntryWatch::Refusal{message};
                               },
                               {}});
    }
}

/// What never takes input looks like the page, not like a field.
void frmMain::colourTotals()
{
    for (QLineEdit *total : {m_ui->txtTotalPaid, m_ui->txtTotalVal, m_ui->txtTotalSales}) {
        QPalette colours;
        colours.setBrush(QPalette::Base, palette().brush(QPalette::Window));
        total->setPalette(colours);
    }
}

// The desktop may turn from light to dark while the window is open.
void frmMain::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourTotals();
}

void frmMain::connectButtons()
{
    const std::pair<QPushButton *, void (frmMain::*)()> buttons[] = {
        {m_ui->cmdFirst, &frmMain::cmdFirst_Click},     {m_ui->cmdPrevious, &frmMain::cmdPrevious_Click},
        {m_ui->cmdNext, &frmMain::cmdNext_Click},       {m_ui->cmdLast, &frmMain::cmdLast_Click},
        {m_ui->cmdAddNew, &frmMain::cmdAddNew_Click},   {m_ui->cmdDelete, &frmMain::cmdDelete_Click},
        {m_ui->cmdFind, &frmMain::cmdFind_Click},       {m_ui->cmdCancel, &frmMain::cmdCancel_Click},
        {m_ui->cmdUpdate, &frmMain::cmdUpdate_Click},   {m_ui->cmdSoldSome, &frmMain::cmdSoldSome_Click},
        {m_ui->cmdPicture, &frmMain::cmdPicture_Click},
    };
    for (const auto &[button, handler] : buttons)
        connect(button, &QPushButton::clicked, this,
                [this, click = handler] { run([&] { (this->*click)(); }); });
}

void frmMain::connectMenus()
{
    const auto connectGroup = [this](const QList<QAction *> &items, void (frmMain::*click)(int)) {
        QActionGroup *group = nullptr;
        for (int index = 1; index <= items.size(); ++index) {
            QAction *item = items[index - 1];
            if (item->isCheckable()) {
                if (!group)
                    group = new QActionGroup(this);
                group->addAction(item);
            }
            connect(item, &QAction::triggered, this, [=, this] { run([&] { (this->*click)(index); }); });
        }
    };
    const Ui::frmMain &ui = *m_ui;
    connectGroup({ui.mnuSort_1, ui.mnuSort_2, ui.mnuSort_3}, &frmMain::mnuSort_Click);
    connectGroup({ui.mnuMaint_1, ui.mnuMaint_2, ui.mnuMaint_3, ui.mnuMaint_4, ui.mnuMaint_5, ui.mnuMaint_6,
                  ui.mnuMaint_7},
                 &frmMain::mnuMaint_Click);
    connectGroup({ui.mnuRptOut_1, ui.mnuRptOut_2, ui.mnuRptOut_3}, &frmMain::mnuRptOut_Click);
    connectGroup({ui.mnuRpt_1, ui.mnuRpt_2, ui.mnuRpt_3, ui.mnuRpt_4, ui.mnuRpt_5, ui.mnuRpt_6, ui.mnuRpt_7},
                 &frmMain::mnuRpt_Click);
    connectReports();
    connectGroup({ui.mnuHelp_1, ui.mnuHelp_2, ui.mnuHelp_3}, &frmMain::mnuHelp_Click);
    connect(m_ui->mnuBackup, &QAction::triggered, this, &frmMain::backupWanted);
    connect(m_ui->mnuPack, &QAction::triggered, this, &frmMain::mnuPack_Click);
    connect(m_ui->mnuAbout, &QAction::triggered, this, &frmMain::mnuAbout_Click);
    connect(m_ui->mnuExit, &QAction::triggered, this, &frmMain::mnuExit_Click);
    connect(m_ui->mnuRptCustom, &QAction::triggered, this, [this] { run([this] { mnuRptCustom_Click(); }); });
}

void frmMain::Form_Load()
{
    const auto step = [this](const std::function<void()> &statement) {
        try {
            attempt(m_shared, statement);
        } catch (const DatabaseRepaired &) {
            attempt(m_shared, statement);
        }
    };
    step([&] { ChkDateFmt(m_shared); });
    markAllLookupListsStale(m_shared);
    m_shared.OutputTarget = ReportKind::Preview;
    m_shared.SortOrder = CoinOrder::Description;
    m_shared.HeadingShade = 0xC8C8C8;
    m_shared.AppFolder = QDir::currentPath();
    if (!m_shared.AppFolder.endsWith(u'/'))
        m_shared.AppFolder += u'/';
    step([&] { requireReadableName(m_shared.AppFolder); });
    // Who does not want an old collection taken over finds the folder as it was.
    if (!offerTakeOver(m_shared.AppFolder, m_shared.desktop))
        endProgram(m_shared);
    step([&] { makeImagesFolder(m_shared.AppFolder); });
    m_shared.HelpFilePath = pathInAnyCase(m_shared.AppFolder, u"coin.hlp"_s);
    // A collection that had to be saved under another name keeps it until the program ends.
    if (m_shared.DatabasePath.isEmpty())
        m_shared.DatabasePath = pathInAnyCase(m_shared.AppFolder, u"coin.mdb"_s);
    // One whose file has got lost while it was lent is open already.
    if (!m_shared.CoinDatabase) {
        step([&] { recoverDatabase(m_shared); });
        step([&] {
            m_shared.CoinDatabase =
                openCoinDatabase(m_shared.DatabasePath, shownProgress(m_shared.desktop, u"Open"_s, false));
        });
    }
    removeUnfinishedFiles(m_shared.AppFolder);
    removeUnfinishedPicture(m_shared.AppFolder);
    step([&] { Form_Activate(); });
    step([&] { m_shared.CoinRecordset = openCoins(coinDatabase(m_shared), m_shared.SortOrder); });
    m_seenRepairs = m_shared.DatabaseRepairs;
    m_seenChanges = m_shared.DatabaseChanges;
    run([&] {
        if (coins().isEmpty()) {
            showEmptyTable();
        } else {
            coins().moveLast();
            coins().moveFirst();
            ShowCoinRecord();
        }
    });
    m_state = EditState::Browsing;
    m_shared.PictureChanged = false;
    ShowCoinBrowseButtons();
    // The first picture of the window is a whole one.
    m_positionTimer.stop();
    run([&] { showPosition(); });
    m_note->tell(shownPlace(m_shared));
    // An empty collection has nothing to do but to begin.
    (m_ui->txtDescr->isEnabled() ? static_cast<QWidget *>(m_ui->txtDescr) : m_ui->cmdAddNew)->setFocus();
}

void frmMain::Form_Activate()
{
    const EditState state = std::exchange(m_state, EditState::Filling);
    const auto restore = qScopeGuard([&] { m_state = state; });
    reloadStaleLookupLists(*m_ui, m_shared);
}

void frmMain::Form_Unload()
{
    m_positionTimer.stop();
    // The last moment at which it can be saved.
    requireFile();
    if (frmImage *image = m_windows.madeImage()) {
        image->clear();
        image->setHasCoin(false);
    }
    attempt(m_shared, [&] {
        if (m_shared.CoinRecordset)
            m_shared.CoinRecordset->close();
    });
    m_shared.CoinRecordset.reset();
    m_shared.CoinDatabase.reset();
}

bool frmMain::event(QEvent *event)
{
    // At the very first activation everything has just been loaded and no list is stale.
    if (event->type() == QEvent::WindowActivate && m_shared.CoinDatabase) {
        run([&] {
            Form_Activate();
            // Another window may have come upon damage: CoinRecordset is a new one then.
            if (m_seenRepairs != m_shared.DatabaseRepairs)
                resumeAfterRepair();
        });
    }
    return QMainWindow::event(event);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    Form_Unload();
    event->accept();
    emit unloaded();
}

// The pages of the tab control follow each other: Tab on the last field of one goes to the first of the next.
bool frmMain::focusNextPrevChild(bool next)
{
    const QList<QWidget *> stops = tabOrder(*m_ui);
    const int count = int(stops.size());
    const QWidget *focused = focusWidget();
    // Not the Tab key: the page with the focus is being turned over.
    if (focused && !focused->isVisibleTo(this))
        return QMainWindow::focusNextPrevChild(next);
    int position = next ? -1 : count;
    for (int i = 0; i < count; ++i) {
        const QWidget *stop = stops[i];
        if (stop == focused || (stop == m_ui->Tab1 && focused == m_ui->Tab1->tabBar()))
            position = i;
    }
    for (int step = 1; step <= count; ++step) {
        const int candidate = ((next ? position + step : position - step) + 2 * count) % count;
        QWidget *stop = stops[candidate];
        if (!isTabStop(*stop))
            continue;
        if (stop == m_ui->Tab1)
            stop = m_ui->Tab1->tabBar();
        EntryWatch::focusField(stop, next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}

void frmMain::mnuPack_Click()
{
    const auto answer = m_shared.desktop.askYesNo(u"Do you wish to compact the Obelmark Program database?"_s,
                                                  u"Compact Database"_s);
    if (answer == Desktop::Answer::Yes)
        emit packWanted();
}

void frmMain::mnuSort_Click(int index)
{
    m_shared.SortOrder = CoinOrder(index);
    m_shared.CoinRecordset = openCoins(coinDatabase(m_shared), m_shared.SortOrder);
    if (coins().isEmpty()) {
        showEmptyTable();
    } else {
        coins().moveLast();
        coins().moveFirst();
        ShowCoinRecord();
    }
}

void frmMain::mnuMaint_Click(int index)
{
    m_shared.CodesMode = Lookup(index);
    // A window of its own, which stays open when this one makes room for a backup.
    (new frmCodesMaint(m_shared))->show();
}

void frmMain::mnuRptOut_Click(int index)
{
    m_shared.OutputTarget = ReportKind(index);
}

void frmMain::mnuRptCustom_Click()
{
    m_shared.CustomUseWith = u"coin"_s;
    try {
        frmRptSpec &designer = m_windows.designer();
        designer.setWindowState(designer.windowState() & ~Qt::WindowMinimized);
        designer.show();
        designer.raise();
        designer.activateWindow();
    } catch (const CatalogueError &error) {
        m_shared.desktop.showMessage(error.message());
    }
}

void frmMain::mnuHelp_Click(int index)
{
    if (index == 1)
        m_shared.desktop.showHelpContents(m_shared.HelpFilePath);
    else if (index == 2)
        m_shared.desktop.showHelpSearch(m_shared.HelpFilePath);
    else
        m_shared.desktop.showHelpOnHelp(m_shared.HelpFilePath);
}

void frmMain::mnuAbout_Click()
{
    if (!m_about)
        m_about = new frmAbout(m_shared.desktop, m_shared.HelpFilePath, this);
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}

void frmMain::mnuExit_Click()
{
    requireFile();
    endProgram(m_shared);
}

} // namespace obelmark
