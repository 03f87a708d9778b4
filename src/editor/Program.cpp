// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/Program.h"

#include "backup/Packing.h"
#include "backup/windows/frmBackup.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "editor/frmMain.h"
#include "store/LostFile.h"
#include <QApplication>

namespace obelmark {

Program::Program(SharedState &shared, ProgramWindows &windows) : m_shared(shared), m_windows(windows)
{
    connect(&m_fileTimer, &QTimer::timeout, this, &Program::lookAfterFile);
    m_fileTimer.setTimerType(Qt::VeryCoarseTimer);
    m_fileTimer.start(std::chrono::seconds(1));
}

Program::~Program() = default;

void Program::showMainWindow()
{
    m_window = std::make_unique<frmMain>(m_shared, m_windows);
    connect(m_window.get(), &frmMain::unloaded, this, &Program::ended);
    // Queued: the window cannot go while it is still carrying out the click on its menu.
    connect(m_window.get(), &frmMain::backupWanted, this, &Program::backUp, Qt::QueuedConnection);
    connect(m_window.get(), &frmMain::packWanted, this, &Program::pack, Qt::QueuedConnection);
    m_openingPlace.setMainWindow(m_window.get());
    m_window->Form_Load();
    m_window->show();
}

void Program::comeToFront()
{
    for (QWidget *window : {static_cast<QWidget *>(m_window.get()), QApplication::activeModalWidget()}) {
        if (!window)
            continue;
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
}

void Program::backUp()
{
    withoutMainWindow([this] { frmBackup(m_shared).exec(); });
}

void Program::pack()
{
    m_shared.desktop.setHourglass(true);
    withoutMainWindow([this] { packDatabase(m_shared); });
    m_shared.desktop.setHourglass(false);
}

void Program::lookAfterFile()
{
    // Work under way finds out by itself.
    if (!m_shared.CoinDatabase || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    const bool isLost = m_shared.CoinDatabase->fileState() != FileState::InPlace;
    if (!isLost)
        m_shared.FileLossTold = false;
    else if (!m_shared.FileLossTold)
        m_window->requireFile();
}

void Program::withoutMainWindow(const std::function<void()> &work)
{
    // With the database closed, what is in no file any more would be gone.
    m_window->requireFile();
    if (m_shared.CoinDatabase && m_shared.CoinDatabase->fileState() != FileState::InPlace)
        return;
    const QRect place = m_window->geometry();
    const Qt::WindowStates state = m_window->windowState();
    LentFile file(m_shared);
    m_window->Form_Unload();
    m_window->hide();
    m_window.reset();
    work();
    file.takeBack();
    showMainWindow();
    m_window->setGeometry(place);
    m_window->setWindowState(state);
}

} // namespace obelmark
