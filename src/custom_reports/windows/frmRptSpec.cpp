// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/windows/frmRptSpec.h"

#include "common/ConfirmReplaceFile.h"
#include "common/SharedState.h"
#include "custom_reports/ReportFile.h"
#include "custom_reports/ReportGenerator.h"
#include "custom_reports/windows/FieldDetails.h"
#include "custom_reports/windows/FieldList.h"
#include "desktop/Desktop.h"
#include "forms/AccessKeys.h"
#include "forms/EditButtons.h"
#include "forms/FirstSize.h"
#include "forms/HelpKey.h"
#include "forms/PageKeys.h"
#include "store/ErrorHandling.h"
#include "ui_frmRptSpec.h"
#include <QCloseEvent>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t reportFilter[] = u"Report Files (*.rpt)|*.rpt";

} // namespace

frmRptSpec::frmRptSpec(SharedState &shared, ReportPreview &preview, QWidget *parent)
    : QMainWindow(parent, Qt::Window), m_shared(shared), m_preview(preview),
      m_catalogue(Catalogue::read(shared.AppFolder)), m_report(m_catalogue, shared.CustomUseWith),
      m_ui(std::make_unique<Ui::frmRptSpec>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    m_watch = new EntryWatch(*this, shared.desktop, [&shared](const auto &rule) { attempt(shared, rule); });
    m_details = std::make_unique<FieldDetails>(*m_ui, m_report, *m_watch, shared);
    connectControls();
    markChanges();
    new AccessKeys(*this);
    addPageKeys(*m_ui->Tab1);
    Form_Load();
}

frmRptSpec::~frmRptSpec() = default;

void frmRptSpec::Form_Load()
{
    m_ui->cmbPageNum->addItems({u"At Bottom"_s, u"In Header"_s, u"No Page Numbers"_s});
    setFirstSize(*this);
    ResetReport();
    m_ui->List1->setFocus();
}

void frmRptSpec::connectControls()
{
    const std::pair<QAbstractButton *, void (frmRptSpec::*)()> buttons[] = {
        {m_ui->cmdAdd, &frmRptSpec::cmdAdd_Click},
        {m_ui->cmdRemove, &frmRptSpec::cmdRemove_Click},
        {m_ui->cmdUp, &frmRptSpec::cmdUp_Click},
        {m_ui->cmdDown, &frmRptSpec::cmdDown_Click},
        {m_ui->cmdGenerate, &frmRptSpec::cmdGenerate_Click},
    };
    for (const auto &[button, handler] : buttons)
        connect(button, &QAbstractButton::clicked, this,
                [this, click = handler] { run([&] { (this->*click)(); }); });
    connect(m_ui->List1, &QListWidget::itemDoubleClicked, this, [this] { run([&] { cmdAdd_Click(); }); });
    connect(m_ui->List2, &QListWidget::itemSelectionChanged, this, &frmRptSpec::ShowFieldDetails);
    connect(m_ui->List2, &QListWidget::itemClicked, this, &frmRptSpec::ShowFieldDetails);

    connect(m_ui->mnuNew, &QAction::triggered, this, [this] { run([&] { mnuNew_Click(); }); });
    connect(m_ui->mnuOpen, &QAction::triggered, this, [this] { run([&] { mnuOpen_Click(); }); });
    connect(m_ui->mnuSave, &QAction::triggered, this, [this] { run([&] { mnuSave_Click(); }); });
    connect(m_ui->mnuSaveAs, &QAction::triggered, this, [this] { run([&] { mnuSaveAs_Click(); }); });
    connect(m_ui->mnuExit, &QAction::triggered, this, &QWidget::close);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QWidget::close);

    keepPlaceWhenHidden(m_ui->fraOrient);
    keepPlaceWhenHidden(m_ui->fraFormat);
    for (QComboBox *list : {m_ui->cmbPageNum, m_ui->cmbSort1, m_ui->cmbSort2})
        list->installEventFilter(this);
}

// Every control but the two lists of fields holds something that the report file keeps.
void frmRptSpec::markChanges()
{
    const auto changed = [this] { ReportChanged = true; };
    const auto edits = findChildren<QLineEdit *>();
    for (QLineEdit *edit : edits)
        connect(edit, &QLineEdit::textChanged, this, changed);
    const auto lists = findChildren<QComboBox *>();
    for (QComboBox *list : lists)
        connect(list, &QComboBox::currentIndexChanged, this, changed);
    const auto boxes = findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes)
        connect(box, &QCheckBox::toggled, this, changed);
    const auto options = findChildren<QRadioButton *>();
    for (QRadioButton *option : options)
        connect(option, &QRadioButton::toggled, this,
                [this](bool isChosen) { ReportChanged = ReportChanged || isChosen; });
    for (QRadioButton *option : {m_ui->optReportTo_1, m_ui->optReportTo_2, m_ui->optReportTo_3})
        connect(option, &QRadioButton::toggled, this, &frmRptSpec::optReportTo_Click);
}

void frmRptSpec::run(const std::function<void()> &procedure)
{
    if (m_watch->isRefusalPending() || !m_watch->commitEnteredField())
        return;
    try {
        attempt(m_shared, procedure);
    } catch (const DatabaseRepaired &) {
        // Nothing of the designer's lies in the database.
    }
}

// The wheel turns a drop-down list only when the user is in it.
bool frmRptSpec::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget *>(object)->hasFocus())
        return false;
    event->ignore();
    return true;
}

void frmRptSpec::closeEvent(QCloseEvent *event)
{
    m_watch->commitEnteredField();
    event->setAccepted(askToSave());
}

void frmRptSpec::ResetReport()
{
    const int width = m_report.width;
    m_report = ReportDefinition(m_catalogue, m_report.SpecUseWith);
    m_report.width = width;
    showReport();
    ReportChanged = false;
}

void frmRptSpec::showReport()
{
    // Hiding a field with the focus is leaving it: what it holds is of the report of before.
    m_watch->forgetEnteredField();
    m_details->clear();
    m_ui->cmbSort1->clear();
    m_ui->cmbSort2->clear();
    for (const CatalogueField &field : m_report.rows.all()) {
        m_ui->cmbSort1->addItem(field.desc, field.specid);
        m_ui->cmbSort2->addItem(field.desc, field.specid);
    }
    m_ui->cmbSort1->setCurrentIndex(m_report.sort1);
    m_ui->cmbSort2->setCurrentIndex(m_report.sort2);
    showFields();

    m_ui->txtTitle->setText(m_report.title);
    m_ui->chkDate->setChecked(m_report.dateInHeader != 0);
    m_ui->cmbPageNum->setCurrentIndex(m_report.pageNum);
    QRadioButton *const targets[] = {m_ui->optReportTo_1, m_ui->optReportTo_2, m_ui->optReportTo_3};
    targets[m_report.reportTo - 1]->setChecked(true);
    (m_report.orient == 0 ? m_ui->optOrient_0 : m_ui->optOrient_1)->setChecked(true);
    (m_report.width == 0 ? m_ui->optWidth_0 : m_ui->optWidth_1)->setChecked(true);
}

void frmRptSpec::showFields()
{
    const QSignalBlocker silent(m_ui->List2);
    m_ui->List1->clear();
    m_ui->List2->clear();
    for (const CatalogueField &field : m_report.rows.all()) {
        if (!m_report.fields.contains(field.specid))
            insertAlphabetically(*m_ui->List1, field.desc, field.specid);
    }
    for (const CatalogueField *field : m_report.reportFields())
        appendField(*m_ui->List2, field->desc, field->specid);
    // Of a file that was read in part, the field that was read last.
    if (!m_report.fields.isEmpty())
        m_ui->List2->setCurrentRow(m_ui->List2->count() - 1);
}

ReportDefinition frmRptSpec::shownReport() const
{
    ReportDefinition report = m_report;
    report.title = m_ui->txtTitle->text();
    report.reportTo = m_ui->optReportTo_1->isChecked() ? 1 : m_ui->optReportTo_2->isChecked() ? 2 : 3;
    report.orient = m_ui->optOrient_0->isChecked() ? 0 : 1;
    report.dateInHeader = m_ui->chkDate->isChecked() ? 1 : 0;
    report.pageNum = m_ui->cmbPageNum->currentIndex();
    report.width = m_ui->optWidth_0->isChecked() ? 0 : 1;
    report.sort1 = m_ui->cmbSort1->currentIndex();
    report.sort2 = m_ui->cmbSort2->currentIndex();
    report.fields = fieldIds(*m_ui->List2);
    return report;
}

void frmRptSpec::ShowFieldDetails()
{
    if (const QListWidgetItem *item = selectedField(*m_ui->List2))
        m_details->show(fieldId(*item));
}

void frmRptSpec::cmdAdd_Click()
{
    ReportChanged = true;
    QListWidgetItem *item = selectedField(*m_ui->List1);
    if (!item) {
        m_shared.desktop.showMessage(
            u"You must select a field from the list of available fields to add to the report."_s);
        return;
    }
    appendField(*m_ui->List2, item->text(), fieldId(*item));
    removeField(*m_ui->List1, item);
    m_ui->List2->setCurrentRow(m_ui->List2->count() - 1);
}

void frmRptSpec::cmdRemove_Click()
{
    ReportChanged = true;
    QListWidgetItem *item = selectedField(*m_ui->List2);
    if (!item) {
        m_shared.desktop.showMessage(u"You must select a field to remove from the report."_s);
        return;
    }
    insertAlphabetically(*m_ui->List1, item->text(), fieldId(*item));
    removeField(*m_ui->List2, item);
    if (m_ui->List2->count() == 0)
        m_details->hide();
}

void frmRptSpec::cmdUp_Click()
{
    moveSelected(-1, u"You must select the field to move up in the list"_s);
}

void frmRptSpec::cmdDown_Click()
{
    moveSelected(1, u"You must select the field to move down in the list"_s);
}

void frmRptSpec::moveSelected(int step, const QString &nothingSelected)
{
    ReportChanged = true;
    const QListWidgetItem *item = selectedField(*m_ui->List2);
    if (!item) {
        m_shared.desktop.showMessage(nothingSelected);
        return;
    }
    const int from = m_ui->List2->row(item);
    const int to = from + step;
    if (to < 0 || to >= m_ui->List2->count())
        return;
    const QSignalBlocker silent(m_ui->List2);
    m_ui->List2->insertItem(to, m_ui->List2->takeItem(from));
    m_ui->List2->setCurrentRow(to);
    ShowFieldDetails();
}

void frmRptSpec::optReportTo_Click()
{
    const bool isPreview = m_ui->optReportTo_1->isChecked();
    m_ui->fraOrient->setVisible(isPreview);
    m_ui->fraFormat->setVisible(isPreview);
}

void frmRptSpec::cmdGenerate_Click()
{
    generateReport(shownReport(), m_shared, m_preview);
}

bool frmRptSpec::askToSave()
{
    if (!ReportChanged)
        return true;
    const auto answer =
        m_shared.desktop.askYesNo(u"Do you wish to save the current report?"_s, u"Save Current Report"_s);
    return answer == Desktop::Answer::No || mnuSave_Click();
}

void frmRptSpec::mnuNew_Click()
{
    if (!askToSave())
        return;
    m_report.width = shownReport().width;
    ResetReport();
    ReportFile.clear();
}

void frmRptSpec::mnuOpen_Click()
{
    if (!askToSave())
        return;
    if (const auto path = m_shared.desktop.askOpenFile(QString::fromUtf16(reportFilter)))
        openReport(*path);
    else
        m_shared.FindCancelled = true;
}

void frmRptSpec::openReport(const QString &path)
{
    // A file that cannot be opened must not be the one that Save writes to.
    ReportFile.clear();
    ReadReport read;
    try {
        read = readReport(loadReportFile(path), shownReport(), m_catalogue, m_shared.regional);
    } catch (const CatalogueError &error) {
        m_shared.desktop.showMessage(error.message());
        return;
    } catch (const NumberedError &error) {
        m_shared.desktop.showMessage(error.description());
        return;
    }
    if (read.report) {
        m_report = *read.report;
        showReport();
        if (read.isValid)
            m_ui->List2->setCurrentRow(0);
        ShowFieldDetails();
    }
    if (!read.isValid) {
        m_shared.desktop.showMessage(u"This does not appear to be a valid report file for this program."_s,
                                     u"Invalid Report File"_s);
        return;
    }
    ReportFile = path;
    ReportChanged = false;
}

bool frmRptSpec::mnuSave_Click()
{
    const bool isSafe = ReportFile.isEmpty() ? mnuSaveAs_Click() : WriteReportFile(ReportFile);
    ReportChanged = ReportChanged && !isSafe;
    return isSafe;
}

bool frmRptSpec::mnuSaveAs_Click()
{
    const auto path = m_shared.desktop.askSaveFile({}, QString::fromUtf16(reportFilter));
    if (!path) {
        m_shared.FindCancelled = true;
        return true;
    }
    ConfirmReplaceReport(*path);
    if (m_shared.FindCancelled)
        return true;
    if (!WriteReportFile(*path))
        return false;
    ReportFile = *path;
    ReportChanged = false;
    return true;
}

void frmRptSpec::ConfirmReplaceReport(const QString &path)
{
    m_shared.FindCancelled = ConfirmReplaceFile(m_shared.desktop, path, u"report file"_s);
}

bool frmRptSpec::WriteReportFile(const QString &path)
{
    try {
        saveReportFile(path, shownReport(), m_shared);
    } catch (const NumberedError &error) {
        m_shared.desktop.showMessage(error.description());
        return false;
    }
    setWindowTitle(u"Custom Report - "_s + QString(path).remove(u".rpt"_s));
    return true;
}

} // namespace obelmark
