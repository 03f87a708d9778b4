// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <memory>

namespace obelmark {

struct ReportGroup;
struct SharedState;
namespace Ui {
class frmRptSel;
}

/// Asks which entries of a lookup table the grouped coin list is to be about: all, or one. The table is that
/// of ReportGroupMode; the answer is SelectedGroupID, or FindCancelled still raised.
class frmRptSel : public QDialog
{
    Q_OBJECT
public:
    /// \throws NumberedError when the entries cannot be read
    frmRptSel(SharedState &shared, QWidget *parent);
    ~frmRptSel() override;

protected:
    void showEvent(QShowEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Form_Load();
    void optAll_Click();
    void optSelected_Click();
    void cmdOk_Click();

    SharedState &m_shared;
    const ReportGroup &m_group;
    std::unique_ptr<Ui::frmRptSel> m_ui;
};

} // namespace obelmark
