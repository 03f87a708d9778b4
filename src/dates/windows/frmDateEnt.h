// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "dates/MonthPage.h"
#include <QDialog>
#include <memory>

namespace obelmark {

struct SharedState;
namespace Ui {
class frmDateEnt;
}

/// The calendar: one month, its day chosen by a click or by Enter, other months and years by the arrow
/// buttons or by Page Up and Page Down (with Ctrl by the year).
///
/// Starts from PickDate, or from today when that is no date, and writes the picked day there; closed without
/// picking it leaves PickDate alone. Shown with exec(); every opening makes a new one.
class frmDateEnt : public QDialog
{
    Q_OBJECT
public:
    frmDateEnt(SharedState &shared, QWidget *parent);
    ~frmDateEnt() override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void Form_Load();
    void ShowMonth();
    void sizeToText();
    void step(int months);
    void choose(int day);
    /// Answers false for a cell without a day.
    bool pick(MonthPage::Cell cell);
    bool pressInGrid(int key, bool withCtrl);

    SharedState &m_shared;
    std::unique_ptr<Ui::frmDateEnt> m_ui;
    MonthPage m_page;
    std::unique_ptr<QMouseEvent> m_release; ///< the last one over the days
};

} // namespace obelmark
