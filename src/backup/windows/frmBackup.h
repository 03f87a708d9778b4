// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <memory>

namespace obelmark {

struct SharedState;
namespace Ui {
class frmBackup;
}

/// Copies the coin database, which must be closed, to the root folder of a drive that the user selects. To be
/// shown with exec().
class frmBackup : public QDialog
{
    Q_OBJECT
public:
    explicit frmBackup(SharedState &shared);
    ~frmBackup() override;

private:
    void Form_Load();
    void cmdOk_Click();
    /// Copies, and tells when that fails.
    void backUp();
    void copyToDrive();

    SharedState &m_shared;
    std::unique_ptr<Ui::frmBackup> m_ui;
};

} // namespace obelmark
