// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/windows/FieldDetails.h"

#include "common/SharedState.h"
#include "custom_reports/ReportDefinition.h"
#include "custom_reports/ReportNumbers.h"
#include "dates/windows/DatePicker.h"
#include "forms/EditButtons.h"
#include "runtime/Formats.h"
#include "runtime/Numbers.h"
#include "store/ErrorHandling.h"
#include "ui_frmRptSpec.h"

namespace obelmark {

using namespace Qt::StringLiterals;
using Refusal = EntryWatch::Refusal;

FieldDetails::FieldDetails(Ui::frmRptSpec &ui, ReportDefinition &report, EntryWatch &watch,
                           SharedState &shared)
    : m_ui(ui), m_report(report), m_shared(shared)
{
    for (QGroupBox *frame : {ui.frame1, ui.fraSel_1, ui.fraSel_2, ui.fraSel_3, ui.fraSel_4, ui.fraSel_5}) {
        keepPlaceWhenHidden(frame);
        frame->hide();
    }
    watchControls(watch);
    QObject::connect(ui.dcStartDate, &DateField::dropDown, ui.dcStartDate,
                     [this] { chooseDate(*m_ui.dcStartDate, u"Select Start Date"_s); });
    QObject::connect(ui.dcEndDate, &DateField::dropDown, ui.dcEndDate,
                     [this] { chooseDate(*m_ui.dcEndDate, u"Select End Date"_s); });
}

void FieldDetails::watchControls(EntryWatch &watch)
{
    const auto store = [&watch, this](QWidget *control, auto set) {
        watch.watch(control, [this, set]() -> std::optional<Refusal> {
            if (FieldOptions *shown = options())
                set(*shown);
            return {};
        });
    };
    store(m_ui.chkHide, [this](FieldOptions &shown) { shown.HideField = m_ui.chkHide->isChecked(); });
    store(m_ui.chkTotal, [this](FieldOptions &shown) { shown.ShowTotal = m_ui.chkTotal->isChecked(); });
    // Neither of the two is chosen to begin with.
    const auto storeTruth = [this](FieldOptions &shown) {
        if (!m_ui.optTrue->isChecked() && !m_ui.optFalse->isChecked())
            return;
        shown.SelTrue = m_ui.optTrue->isChecked();
        shown.SelFalse = m_ui.optFalse->isChecked();
    };
    store(m_ui.optTrue, storeTruth);
    store(m_ui.optFalse, storeTruth);

    watch.watch(m_ui.txtWidth, [this] { return leaveWidth(); });
    watch.watch(m_ui.txtStarting, [this] { return leaveStarting(); });
    watch.watch(m_ui.txtLess, [this] { return leaveBound(*m_ui.txtLess, &FieldOptions::LessThan); });
    watch.watch(m_ui.txtGreater, [this] { return leaveBound(*m_ui.txtGreater, &FieldOptions::GreaterThan); });

    const QString date = u"You must enter a valid date or leave this selection field blank."_s;
    const QString time = u"You must enter a valid time or leave this selection field blank."_s;
    const auto watchSpan = [&](auto *control, Date FieldOptions::*end, const QString &message) {
        watch.watch(control, [=, this] { return leaveSpan(control->text(), end, message); });
    };
    watchSpan(m_ui.dcStartDate, &FieldOptions::StartValue, date);
    watchSpan(m_ui.dcEndDate, &FieldOptions::EndValue, date);
    watchSpan(m_ui.txtStartTime, &FieldOptions::StartValue, time);
    watchSpan(m_ui.txtEndTime, &FieldOptions::EndValue, time);
}

void FieldDetails::chooseDate(DateField &field, const QString &caption)
{
    attempt(m_shared, [&] {
        pickDateFor(field, caption, dateOrToday(field.text(), m_shared.regional), m_shared,
                    CalendarEdge::Top);
    });
}

QGroupBox *FieldDetails::criteriaFrame() const
{
    QGroupBox *const frames[] = {m_ui.fraSel_1, m_ui.fraSel_2, m_ui.fraSel_3, m_ui.fraSel_4, m_ui.fraSel_5};
    return frames[ShownType - 1];
}

FieldOptions *FieldDetails::options() const
{
    const bool isThere = ShownSpecID > 0 && size_t(ShownSpecID) < m_report.options.size();
    return isThere ? &m_report.options[size_t(ShownSpecID)] : nullptr;
}

void FieldDetails::showTruth(bool isTrue, bool isFalse)
{
    // One of an exclusive pair cannot be switched off.
    for (QRadioButton *option : {m_ui.optTrue, m_ui.optFalse}) {
        option->setAutoExclusive(false);
        option->setChecked(option == m_ui.optTrue ? isTrue : isFalse);
    }
    m_ui.optTrue->setAutoExclusive(true);
    m_ui.optFalse->setAutoExclusive(true);
}

void FieldDetails::clear()
{
    criteriaFrame()->hide();
    ShownType = 1;
    ShownSpecID = 0;
    for (QCheckBox *box : {m_ui.chkHide, m_ui.chkTotal})
        box->setChecked(false);
    for (QLineEdit *edit :
         {m_ui.txtStartTime, m_ui.txtEndTime, m_ui.txtLess, m_ui.txtGreater, m_ui.txtStarting, m_ui.txtWidth})
        edit->clear();
    for (DateField *field : {m_ui.dcStartDate, m_ui.dcEndDate})
        field->setText({});
    showTruth(false, false);
}

void FieldDetails::show(int specid)
{
    const CatalogueField *field = m_report.rows.find(specid);
    if (!field)
        return;
    m_ui.frame1->show();
    criteriaFrame()->hide();
    ShownSpecID = specid;
    ShownType = int(field->datatype);
    criteriaFrame()->show();

    const FieldOptions &shown = *options();
    m_ui.txtWidth->setText(plainSingle(shown.ColWidth, m_shared.regional));
    m_ui.chkHide->setChecked(shown.HideField);
    switch (field->datatype) {
    case FieldKind::Text:
        m_ui.txtStarting->setText(shown.StartsWith);
        break;
    case FieldKind::Number:
        m_ui.txtLess->setText(shown.LessThan);
        m_ui.txtGreater->setText(shown.GreaterThan);
        m_ui.chkTotal->setChecked(shown.ShowTotal);
        break;
    case FieldKind::Date:
        m_ui.dcStartDate->setText(spanText(shown.StartValue));
        m_ui.dcEndDate->setText(spanText(shown.EndValue));
        break;
    case FieldKind::YesNo:
        showTruth(shown.SelTrue, shown.SelFalse);
        break;
    case FieldKind::Time:
        m_ui.txtStartTime->setText(spanText(shown.StartValue));
        m_ui.txtEndTime->setText(spanText(shown.EndValue));
        break;
    }
}

QString FieldDetails::spanText(Date value) const
{
    if (value == Date{})
        return {};
    return ShownType == int(FieldKind::Time) ? formatMediumTime(value, m_shared.regional)
                                             : formatShortDate(value, m_shared.regional);
}

void FieldDetails::hide()
{
    m_ui.frame1->hide();
}

std::optional<Refusal> FieldDetails::leaveWidth()
{
    FieldOptions *shown = options();
    if (!shown)
        return {};
    const auto width = singleFromText(m_ui.txtWidth->text(), m_shared.regional);
    if (!width)
        return Refusal{u"You must enter a valid number for the column width"_s};
    shown->ColWidth = *width;
    if (*width == 0) {
        m_ui.chkHide->setChecked(true);
        shown->HideField = true;
    }
    return {};
}

std::optional<Refusal> FieldDetails::leaveStarting()
{
    // Report files separate their entries with it.
    if (m_ui.txtStarting->text().contains(u';'))
        return Refusal{u"A semicolon cannot be used here."_s};
    if (FieldOptions *shown = options())
        shown->StartsWith = m_ui.txtStarting->text();
    return {};
}

std::optional<Refusal> FieldDetails::leaveBound(const QLineEdit &edit, QString FieldOptions::*bound)
{
    if (!edit.text().isEmpty() && !isNumeric(edit.text(), m_shared.regional))
        return Refusal{u"You must enter a number or leave this selection field blank"_s};
    if (FieldOptions *shown = options())
        shown->*bound = edit.text();
    return {};
}

std::optional<Refusal> FieldDetails::leaveSpan(const QString &text, Date FieldOptions::*end,
                                               const QString &message)
{
    if (!text.isEmpty() && !isDate(text, m_shared.regional))
        return Refusal{message};
    // The text shows less than there is: a time without its seconds and its date.
    FieldOptions *shown = options();
    if (shown && text != spanText(shown->*end))
        shown->*end = text.isEmpty() ? Date{} : toDate(text, m_shared.regional);
    return {};
}

} // namespace obelmark
