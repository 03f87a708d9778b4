// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>
#include <memory>

namespace obelmark {

class Desktop;
namespace Ui {
class frmAbout;
}

/// Product name, version and a link to the product's web page.
class frmAbout : public QWidget
{
    Q_OBJECT
public:
    /// \a helpFile is the path of the help file; it must outlive the window.
    frmAbout(Desktop &desktop, const QString &helpFile, QWidget *parent);
    ~frmAbout() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    Desktop &m_desktop;
    std::unique_ptr<Ui::frmAbout> m_ui;
};

} // namespace obelmark
