// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/frmAbout.h"

#include "common/ProductPage.h"
#include "desktop/Desktop.h"
#include "forms/HelpKey.h"
#include "ui_frmAbout.h"
#include <QFontInfo>
#include <QKeyEvent>
#include <QUrl>

namespace obelmark {

using namespace Qt::StringLiterals;

static constexpr double productEnlargement = 2.6;

frmAbout::frmAbout(Desktop &desktop, const QString &helpFile, QWidget *parent)
    : QWidget(parent, Qt::Dialog), m_desktop(desktop), m_ui(std::make_unique<Ui::frmAbout>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    new HelpKey(*this, desktop, helpFile);
    QFont large = m_ui->lblProduct->font();
    large.setPointSizeF(QFontInfo(font()).pointSizeF() * productEnlargement);
    m_ui->lblProduct->setFont(large);
    const QString address = QString::fromUtf16(productPage);
    m_ui->Label9->setText(u"<a href=\"%1\">%1</a>"_s.arg(address));
    connect(m_ui->Label9, &QLabel::linkActivated, this,
            [this](const QString &link) { m_desktop.openWebPage(QUrl(link)); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QWidget::close);
    m_ui->cmdOK->setFocus();
}

frmAbout::~frmAbout() = default;

void frmAbout::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_ui->cmdOK->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace obelmark
