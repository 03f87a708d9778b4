// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/ReportDefinition.h"
#include <QMainWindow>
#include <functional>
#include <memory>

class QListWidget;
class QListWidgetItem;

namespace obelmark {

class FieldDetails;
class EntryWatch;
class ReportPreview;
struct SharedState;
namespace Ui {
class frmRptSpec;
}

/// The designer of custom reports: the user picks fields of the catalogue, sets their options and those of
/// the report, saves and opens report files, and generates the report. Begins with an empty report; deletes
/// itself when it is closed.
class frmRptSpec : public QMainWindow
{
    Q_OBJECT
public:
    /// Offers the catalogue rows that CustomUseWith names at this moment. \throws CatalogueError
    frmRptSpec(SharedState &shared, ReportPreview &preview, QWidget *parent = nullptr);
    ~frmRptSpec() override;

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void Form_Load();
    void connectControls();
    void markChanges();
    void ResetReport();
    void ShowFieldDetails();
    bool WriteReportFile(const QString &path);
    void ConfirmReplaceReport(const QString &path);
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdGenerate_Click();
    void optReportTo_Click();
    void mnuNew_Click();
    void mnuOpen_Click();
    /// Both answer false when the file could not be written; a cancelled dialog is no failure.
    bool mnuSave_Click();
    bool mnuSaveAs_Click();

    /// Runs an event's procedure, after the field with the cursor has been stored; a value that is refused
    /// comes first.
    void run(const std::function<void()> &procedure);
    /// Offers to save what has changed. Answers false when that failed: the report must not be lost then.
    bool askToSave();
    void moveSelected(int step, const QString &nothingSelected);
    void openReport(const QString &path);
    /// The controls as m_report says, and back.
    void showReport();
    ReportDefinition shownReport() const;
    void showFields();

    SharedState &m_shared;
    ReportPreview &m_preview;
    Catalogue m_catalogue;
    ReportDefinition m_report; ///< its options are always those on screen, the rest as it was last shown
    std::unique_ptr<Ui::frmRptSpec> m_ui;
    EntryWatch *m_watch;
    std::unique_ptr<FieldDetails> m_details;

    bool ReportChanged = false;
    QString ReportFile; ///< empty until the report has been saved or opened
};

} // namespace obelmark
