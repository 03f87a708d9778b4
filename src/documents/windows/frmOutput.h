// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>
#include <memory>

namespace obelmark {

class ReportDocument;
struct SharedState;
namespace Ui {
class frmOutput;
}

/// The report output window: the preview of one report at a time. Closed, it tells so once and is of no
/// further use.
class frmOutput : public QWidget
{
    Q_OBJECT
public:
    /// The shared state must outlive the window.
    explicit frmOutput(SharedState &shared);
    ~frmOutput() override;

    ReportDocument &document();

signals:
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    std::unique_ptr<Ui::frmOutput> m_ui;
};

} // namespace obelmark
