// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/frmOutput.h"

#include "ui_frmOutput.h"
#include <QCloseEvent>
#include <QScreen>

namespace obelmark {

frmOutput::frmOutput(SharedState &shared)
    : QWidget(nullptr, Qt::Window), m_ui(std::make_unique<Ui::frmOutput>())
{
    m_ui->setupUi(this);
    m_ui->VSPrinter->setShared(shared);
    connect(m_ui->cmdOk, &QPushButton::clicked, this, &QWidget::close);
    // As large as a page is, so that it can be read, where the screen is large enough.
    const QSize most = screen()->availableSize() * 9 / 10;
    resize(m_ui->VSPrinter->pageSizeOnScreen(most).boundedTo(most));
    m_ui->VSPrinter->setFocus();
}

frmOutput::~frmOutput() = default;

ReportDocument &frmOutput::document()
{
    return m_ui->VSPrinter->document();
}

void frmOutput::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    emit unloaded();
}

} // namespace obelmark
