// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/windows/frmRptSel.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "forms/FirstSize.h"
#include "forms/HelpKey.h"
#include "reports/ReportGroups.h"
#include "runtime/NumberedError.h"
#include "ui_frmRptSel.h"

namespace obelmark {

using namespace Qt::StringLiterals;

frmRptSel::frmRptSel(SharedState &shared, QWidget *parent)
    : QDialog(parent), m_shared(shared), m_group(reportGroup(shared.ReportGroupMode)),
      m_ui(std::make_unique<Ui::frmRptSel>())
{
    m_ui->setupUi(this);
    connect(m_ui->optAll, &QRadioButton::toggled, this, &frmRptSel::optAll_Click);
    connect(m_ui->optSelected, &QRadioButton::toggled, this, &frmRptSel::optSelected_Click);
    connect(m_ui->cmdOk, &QPushButton::clicked, this, &frmRptSel::cmdOk_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    Form_Load();
    m_ui->optAll->setFocus(Qt::TabFocusReason);
}

frmRptSel::~frmRptSel() = default;

void frmRptSel::Form_Load()
{
    m_shared.FindCancelled = true;
    const LookupTable &table = lookupTable(m_group.table);
    setWindowTitle(QString::fromUtf16(table.caption) + u" Report"_s);
    m_ui->optAll->setText(u"All "_s + QString::fromUtf16(table.plural));
    m_ui->optSelected->setText(QString::fromUtf16(m_group.optSelected));
    setHelpTopic(*this, m_group.helpTopic);
    setFirstSize(*this);
    if (!m_shared.CoinDatabase)
        throw runtimeError(ObjectNotSet);
    const auto entries = m_shared.CoinDatabase->openForwardOnly(table.entriesQuery());
    for (; !entries->eof(); entries->moveNext()) {
        auto *entry = new QListWidgetItem(entries->value(table.DescField).toText(), m_ui->List1);
        entry->setData(Qt::UserRole, qint32(entries->value(table.KeyField).toInt()));
    }
}

void frmRptSel::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    setAttribute(Qt::WA_KeyboardFocusChange); // the focus is seen before the first Tab
}

bool frmRptSel::focusNextPrevChild(bool next)
{
    // The option that has the focus takes the Tab key from the other one, even while none is chosen.
    for (QRadioButton *option : {m_ui->optAll, m_ui->optSelected})
        option->setFocusPolicy(Qt::StrongFocus);
    return QDialog::focusNextPrevChild(next);
}

void frmRptSel::optAll_Click()
{
    if (!m_ui->optAll->isChecked())
        return;
    m_ui->List1->setEnabled(false);
    m_ui->List1->setCurrentItem(nullptr);
}

void frmRptSel::optSelected_Click()
{
    if (m_ui->optSelected->isChecked())
        m_ui->List1->setEnabled(true);
}

void frmRptSel::cmdOk_Click()
{
    const auto selected = m_ui->List1->selectedItems();
    if (m_ui->optAll->isChecked()) {
        m_shared.SelectedGroupID = -1;
    } else if (!selected.isEmpty()) {
        m_shared.SelectedGroupID = selected.first()->data(Qt::UserRole).toInt();
    } else {
        m_shared.desktop.showMessage(u"You must make a selection from the list!"_s);
        return;
    }
    m_shared.FindCancelled = false;
    accept();
}

} // namespace obelmark
