// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/EntryWatch.h"

class QGroupBox;
class QLineEdit;

namespace obelmark {

class DateField;
struct Date;
struct FieldOptions;
struct ReportDefinition;
struct SharedState;
namespace Ui {
class frmRptSpec;
}

/// The frame "Details For" of the report designer: shows the options of one field and stores what the user
/// enters when a control is left.
class FieldDetails
{
public:
    /// \a report is the one on screen, whichever that is at the moment.
    FieldDetails(Ui::frmRptSpec &ui, ReportDefinition &report, EntryWatch &watch, SharedState &shared);

    /// Hides the criteria and empties every control.
    void clear();
    /// Shows the options of a field of the report, and the criteria that its kind of data can have.
    void show(int specid);
    void hide();

private:
    void watchControls(EntryWatch &watch);
    void chooseDate(DateField &field, const QString &caption);
    QGroupBox *criteriaFrame() const;
    /// Of the field whose details are shown, also while it is no longer in the report; nullptr before there
    /// has been one.
    FieldOptions *options() const;
    void showTruth(bool isTrue, bool isFalse);
    QString spanText(Date value) const;

    std::optional<EntryWatch::Refusal> leaveWidth();
    std::optional<EntryWatch::Refusal> leaveStarting();
    std::optional<EntryWatch::Refusal> leaveBound(const QLineEdit &edit, QString FieldOptions::*bound);
    std::optional<EntryWatch::Refusal> leaveSpan(const QString &text, Date FieldOptions::*end,
                                                 const QString &message);

    Ui::frmRptSpec &m_ui;
    ReportDefinition &m_report;
    SharedState &m_shared;
    int ShownType = 1;   ///< the index of the criteria frame on screen
    int ShownSpecID = 0; ///< whose options the controls write into
};

} // namespace obelmark
