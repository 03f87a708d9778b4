// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "lookups/frmCodesMaint.h"

#include "coins/WriteStep.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "engine/language/EngineError.h"
#include "forms/AccessKeys.h"
#include "forms/Browsing.h"
#include "forms/EditButtons.h"
#include "forms/FieldControl.h"
#include "forms/FirstSize.h"
#include "forms/HelpKey.h"
#include "lookups/CodesModes.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include "ui_frmCodesMaint.h"
#include <QKeyEvent>
#include <QScopeGuard>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

frmCodesMaint::frmCodesMaint(SharedState &shared, QWidget *parent)
    : QWidget(parent, Qt::Window), m_shared(shared), Mode(lookupMode(shared.CodesMode)),
      m_table(lookupTable(Mode.table)), m_ui(std::make_unique<Ui::frmCodesMaint>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_buttons = std::make_unique<EditButtons>(*m_ui, QList{m_ui->cmdOk});
    const auto addField = [this](const char16_t *column, std::unique_ptr<FieldControl> control) {
        control->onChange(this, [this] { MarkChanged(); });
        m_fields.push_back({QString::fromUtf16(column), std::move(control), {}});
    };
    addField(m_table.DescField, std::make_unique<TextControl>(m_ui->txtDesc));
    if (m_table.id == Lookup::Sellers) {
        addField(u"BouPhone", std::make_unique<TextControl>(m_ui->txtBouPhone));
        addField(u"BouFav", std::make_unique<YesNoControl>(m_ui->chkBouFav));
        addField(u"bounotes", std::make_unique<NotesControl>(m_ui->txtBouNotes));
    }
    connectButtons();
    new AccessKeys(*this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    Form_Load();
}

frmCodesMaint::~frmCodesMaint() = default;

void frmCodesMaint::connectButtons()
{
    const std::pair<QPushButton *, void (frmCodesMaint::*)()> buttons[] = {
        {m_ui->cmdFirst, &frmCodesMaint::cmdFirst_Click},
        {m_ui->cmdPrevious, &frmCodesMaint::cmdPrevious_Click},
        {m_ui->cmdNext, &frmCodesMaint::cmdNext_Click},
        {m_ui->cmdLast, &frmCodesMaint::cmdLast_Click},
        {m_ui->cmdAddNew, &frmCodesMaint::cmdAddNew_Click},
        {m_ui->cmdDelete, &frmCodesMaint::cmdDelete_Click},
        {m_ui->cmdCancel, &frmCodesMaint::cmdCancel_Click},
        {m_ui->cmdFind, &frmCodesMaint::cmdFind_Click},
        {m_ui->cmdUpdate, &frmCodesMaint::cmdUpdate_Click},
        {m_ui->cmdOk, &frmCodesMaint::cmdOk_Click},
    };
    for (const auto &[button, handler] : buttons)
        connect(button, &QPushButton::clicked, this,
                [this, click = handler] { run([&] { (this->*click)(); }); });
}

void frmCodesMaint::Form_Load()
{
    setWindowTitle(QString::fromUtf16(Mode.caption));
    m_ui->lblDesc->setText(QString::fromUtf16(Mode.label));
    m_ui->txtDesc->setAccessibleName(m_ui->lblDesc->text());
    const QList<QWidget *> sellerFields{m_ui->lblBouPhone, m_ui->txtBouPhone, m_ui->chkBouFav,
                                        m_ui->lblBouNotes, m_ui->txtBouNotes};
    for (QWidget *widget : sellerFields)
        widget->setVisible(m_table.id == Lookup::Sellers);
    setHelpTopic(*this, Mode.helpTopic);
    // As low as one field and the buttons allow; the first size does not go below that.
    if (m_table.id != Lookup::Sellers)
        resize(width(), 0);
    setFirstSize(*this);
    makeDefault(m_ui->cmdOk);
    ShowBrowseButtons();
    m_seenChanges = m_shared.DatabaseChanges;
    run([&] {
        attempt(m_shared, [&] { openEntries(); });
        showCurrentRow();
    });
    // An empty table has nothing to do but to begin.
    (isShowingEntry() ? static_cast<QWidget *>(m_ui->txtDesc) : m_ui->cmdAddNew)->setFocus();
}

void frmCodesMaint::Form_Activate()
{
    m_shared.*m_table.stale = true;
    if (m_seenRepairs != m_shared.DatabaseRepairs)
        run([&] { resumeAfterRepair(); });
    else if (m_entries && m_state == EditState::Browsing)
        run([&] { showChangesOfOthers(); });
}

bool frmCodesMaint::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        Form_Activate();
    return QWidget::event(event);
}

// From the fields, Enter is for the default button; Escape is for none.
void frmCodesMaint::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter)
        QWidget::keyPressEvent(event);
    else if (m_defaultButton->isVisible())
        m_defaultButton->click();
}

void frmCodesMaint::run(const std::function<void()> &procedure)
{
    try {
        attempt(m_shared, procedure);
    } catch (const DatabaseRepaired &) {
        run([this] { resumeAfterRepair(); });
    }
}

void frmCodesMaint::openEntries()
{
    m_entries = coinDatabase(m_shared).openDynaset(m_table.entriesQuery());
    m_seenRepairs = m_shared.DatabaseRepairs;
}

Dynaset &frmCodesMaint::entries()
{
    if (!m_entries)
        throw runtimeError(ObjectNotSet);
    return *m_entries;
}

void frmCodesMaint::makeDefault(QPushButton *button)
{
    if (m_defaultButton)
        m_defaultButton->setDefault(false);
    m_defaultButton = button;
    m_defaultButton->setDefault(true);
}

void frmCodesMaint::fillFields(const std::function<void(Field &)> &fill)
{
    const bool isAdding = std::exchange(m_state, EditState::Filling) == EditState::Adding;
    const auto done = qScopeGuard([&] { m_state = isAdding ? EditState::Adding : EditState::Browsing; });
    std::ranges::for_each(m_fields, fill);
}

void frmCodesMaint::ShowRecord()
{
    fillFields([&](Field &field) {
        field.shown = entries().value(field.column);
        field.control->show(field.shown);
    });
    m_shownKey = currentKey();
    // They are disabled when this is the first entry, added in another window, of a table that was empty.
    EnableFields();
}

void frmCodesMaint::ClearFields()
{
    fillFields([](Field &field) { field.control->clear(); });
}

void frmCodesMaint::setFieldsEnabled(bool enabled)
{
    for (const Field &field : m_fields)
        field.control->widget()->setEnabled(enabled);
}

void frmCodesMaint::DisableFields()
{
    setFieldsEnabled(false);
}

void frmCodesMaint::EnableFields()
{
    setFieldsEnabled(true);
}

void frmCodesMaint::showEmptyTable()
{
    ClearFields();
    DisableFields();
}

bool frmCodesMaint::isShowingEntry() const
{
    return m_ui->txtDesc->isEnabled();
}

void frmCodesMaint::showCurrentRow()
{
    if (entries().isEmpty())
        showEmptyTable();
    else
        ShowRecord();
}

void frmCodesMaint::showNeighbour()
{
    if (moveToNeighbour(entries()))
        ShowRecord();
    else
        showEmptyTable();
}

// What another window has written is shown; an entry that it has deleted stays on screen until something is
// to be done with it.
void frmCodesMaint::showChangesOfOthers()
{
    const auto isOutdated = [this](const Field &field) {
        return entries().value(field.column) != field.shown;
    };
    try {
        if (isOnEntry()) {
            if (std::ranges::any_of(m_fields, isOutdated))
                ShowRecord();
        } else if (!isShowingEntry()) {
            showNeighbour();
        }
    } catch (const EngineError &error) {
        // A window that has lost its database tells so when it is used, not when it comes to the front.
        if (error.number() != ObjectClosed)
            throw;
    }
}

// The recordsets of before the repair are gone. An entry that was being saved and has got into the file is
// shown as saved. What the user was typing is kept: a changed entry goes on being changed, and when the
// damage has cost it its row, or the row may be that of another entry now, it goes on as a new one.
void frmCodesMaint::resumeAfterRepair()
{
    const bool isOpenedAnew = m_seenRepairs != m_shared.DatabaseRepairs;
    const bool isChanged = std::exchange(m_seenChanges, m_shared.DatabaseChanges) != m_shared.DatabaseChanges;
    if (isOpenedAnew)
        openEntries();
    const qint64 saved = std::exchange(m_savedKey, 0);
    findKey(saved ? saved : m_shownKey);
    if (isOpenedAnew && saved && !entries().noMatch()) {
        finishSaving(saved);
        return;
    }
    if (m_state == EditState::Adding)
        return;
    if (m_state == EditState::Browsing) {
        showCurrentRow();
    } else if (isChanged || entries().noMatch()) {
        m_state = EditState::Adding;
        ShowEditButtons();
    }
}

void frmCodesMaint::ShowEditButtons()
{
    m_buttons->show(m_state);
}

void frmCodesMaint::ShowBrowseButtons()
{
    m_buttons->show(EditState::Browsing);
}

void frmCodesMaint::returnToBrowsing()
{
    ShowBrowseButtons();
    m_state = EditState::Browsing;
}

void frmCodesMaint::MarkChanged()
{
    if (m_state != EditState::Browsing)
        return;
    m_state = EditState::Editing;
    ShowEditButtons();
}

void frmCodesMaint::browseTo(Move direction)
{
    if (browse(entries(), direction, m_shared.desktop))
        ShowRecord();
    else
        showEmptyTable();
}

void frmCodesMaint::cmdFirst_Click()
{
    browseTo(Move::First);
}

void frmCodesMaint::cmdPrevious_Click()
{
    browseTo(Move::Previous);
}

void frmCodesMaint::cmdNext_Click()
{
    browseTo(Move::Next);
}

void frmCodesMaint::cmdLast_Click()
{
    browseTo(Move::Last);
}

bool frmCodesMaint::ValidateEntry()
{
    if (!m_ui->txtDesc->text().isEmpty())
        return true;
    m_shared.desktop.showMessage(u"You must enter a description or press Cancel"_s, u"Missing Data"_s);
    m_ui->txtDesc->setFocus();
    return false;
}

qint64 frmCodesMaint::SaveRecord()
{
    for (const Field &field : m_fields)
        attempt(m_shared, [&] { entries().setValue(field.column, field.control->value()); });
    qint64 key = 0;
    attempt(m_shared, [&] { key = currentKey(); });
    WriteStep step(m_shared, StepKind::Entry, stepName(m_state == EditState::Adding ? u"Add"_s : u"Change"_s),
                   this);
    if (step.update(entries()))
        step.commit([&] { m_savedKey = key; });
    return key;
}

QString frmCodesMaint::stepName(const QString &action) const
{
    return u"%1 %2 '%3'"_s.arg(action, QStringView(m_table.caption), m_ui->txtDesc->text());
}

void frmCodesMaint::finishSaving(qint64 key)
{
    if (m_addsAnother) {
        beginEntry();
        return;
    }
    attempt(m_shared, [&] {
        findKey(key);
        if (entries().noMatch() && !entries().isEmpty())
            entries().moveFirst();
        showCurrentRow();
    });
    m_savedKey = 0;
    returnToBrowsing();
}

void frmCodesMaint::beginEntry()
{
    m_savedKey = 0;
    ClearFields();
    m_ui->txtDesc->setFocus();
}

qint64 frmCodesMaint::currentKey()
{
    return entries().value(m_table.KeyField).toInt();
}

void frmCodesMaint::findKey(qint64 key)
{
    entries().findFirst(u"%1 = %2"_s.arg(QStringView(m_table.KeyField), QString::number(key)));
}

bool frmCodesMaint::isOnEntry()
{
    try {
        currentKey();
        return true;
    } catch (const EngineError &error) {
        if (error.number() != RecordDeleted && error.number() != NoCurrentRecord)
            throw;
        return false;
    }
}

void frmCodesMaint::leaveDeletedEntry()
{
    m_shared.desktop.showMessage(u"This entry has been deleted in another window."_s, u"Entry Deleted"_s);
    showNeighbour();
    returnToBrowsing();
}

void frmCodesMaint::cmdAddNew_Click()
{
    if (m_state == EditState::Adding) {
        if (!ValidateEntry())
            return;
        m_addsAnother = true;
        attempt(m_shared, [&] { entries().addNew(); });
        SaveRecord();
    } else {
        m_state = EditState::Adding;
        if (!entries().isEmpty())
            attempt(m_shared, [&] { entries().moveLast(); });
        EnableFields();
        ShowEditButtons();
        makeDefault(m_ui->cmdAddNew);
    }
    beginEntry();
}

void frmCodesMaint::cmdUpdate_Click()
{
    if (!ValidateEntry())
        return;
    if (m_state != EditState::Adding && !isOnEntry()) {
        leaveDeletedEntry();
        return;
    }
    m_addsAnother = false;
    attempt(m_shared, [&] {
        if (m_state == EditState::Adding)
            entries().addNew();
        else
            entries().edit();
    });
    finishSaving(SaveRecord());
}

void frmCodesMaint::cmdCancel_Click()
{
    if (!entries().isEmpty())
        entries().moveLast();
    showCurrentRow();
    returnToBrowsing();
    makeDefault(m_ui->cmdOk);
}

bool frmCodesMaint::isInUse(qint64 key)
{
    // Read only as far as the first coin: there may be many.
    const auto coins = coinDatabase(m_shared).openForwardOnly(m_table.coinsQuery(key));
    return !coins->eof();
}

void frmCodesMaint::cmdDelete_Click()
{
    if (!isShowingEntry())
        return;
    if (!isOnEntry()) {
        leaveDeletedEntry();
        return;
    }
    const auto answer = m_shared.desktop.askYesNo(QString::fromUtf16(Mode.deleteQuestion),
                                                  QString::fromUtf16(Mode.deleteTitle));
    if (answer == Desktop::Answer::No)
        return;
    bool inUse = false;
    if (!attempt(m_shared, [&] { inUse = isInUse(currentKey()); }))
        return;
    if (inUse) {
        m_shared.desktop.showMessage(QString::fromUtf16(Mode.inUseMessage), u"Cannot Delete"_s);
        return;
    }
    WriteStep step(m_shared, StepKind::Entry, stepName(u"Delete"_s), this);
    if (step.remove(entries()))
        step.commit();
    attempt(m_shared, [&] { showNeighbour(); });
}

void frmCodesMaint::cmdFind_Click()
{
    const QString prompt = u"Enter the %1 description to find:"_s.arg(QString::fromUtf16(Mode.noun));
    QString beginning = m_shared.desktop.askText(prompt, u"Find Code"_s).value_or(QString());
    beginning.replace(u"'"_s, u"''"_s);
    entries().findFirst(u"%1 like '%2*'"_s.arg(QStringView(m_table.DescField), beginning));
    if (entries().noMatch())
        m_shared.desktop.showMessage(u"That record was not found."_s, u"No Records Match"_s);
    else
        ShowRecord();
}

// Also when a backup or a packing has closed the database under the window: there is nothing left to lose.
void frmCodesMaint::cmdOk_Click()
{
    m_entries.reset();
    close();
}

} // namespace obelmark
