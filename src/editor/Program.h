// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/OpeningPlace.h"
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

namespace obelmark {

class frmMain;
struct ProgramWindows;
struct SharedState;

/// The program as it runs: one main window, which makes room while the database file is worked on as a whole
/// and is opened anew afterwards, on the first coin and with every choice at its default.
class Program : public QObject
{
    Q_OBJECT
public:
    Program(SharedState &shared, ProgramWindows &windows);
    ~Program() override;

    void showMainWindow();
    /// Null while the database is being worked on.
    frmMain *mainWindow() const { return m_window.get(); }
    /// The main window to the front, also out of the task bar, and before it the dialog that is open.
    void comeToFront();

signals:
    /// The user has closed the main window.
    void ended();

private:
    void backUp();
    void pack();
    /// Every second: nobody is to work on for long in a collection whose file has been taken away.
    void lookAfterFile();
    void withoutMainWindow(const std::function<void()> &work);

    SharedState &m_shared;
    ProgramWindows &m_windows;
    std::unique_ptr<frmMain> m_window;
    OpeningPlace m_openingPlace;
    QTimer m_fileTimer;
};

} // namespace obelmark
