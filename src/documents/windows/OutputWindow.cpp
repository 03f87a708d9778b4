// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/OutputWindow.h"

#include "documents/windows/frmOutput.h"

namespace obelmark {

OutputWindow::OutputWindow(SharedState &shared) : m_shared(shared) {}

OutputWindow::~OutputWindow() = default;

frmOutput &OutputWindow::window()
{
    if (!m_window) {
        m_window = std::make_unique<frmOutput>(m_shared);
        // It is in the middle of an event of its own then.
        QObject::connect(m_window.get(), &frmOutput::unloaded, m_window.get(),
                         [this] { m_window.release()->deleteLater(); });
    }
    return *m_window;
}

ReportDocument &OutputWindow::document()
{
    return window().document();
}

void OutputWindow::show()
{
    frmOutput &output = window();
    output.setWindowState(output.windowState() & ~Qt::WindowMinimized);
    output.show();
    output.raise();
    output.activateWindow();
}

} // namespace obelmark
