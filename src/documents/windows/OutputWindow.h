// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportPreview.h"
#include <memory>

namespace obelmark {

class frmOutput;
struct SharedState;

/// The one report output window of the program, made again after it has been closed.
class OutputWindow : public ReportPreview
{
public:
    /// The shared state must outlive it.
    explicit OutputWindow(SharedState &shared);
    ~OutputWindow() override;

    /// Valid until the window is closed.
    ReportDocument &document() override;
    void show() override;

private:
    frmOutput &window();

    SharedState &m_shared;
    std::unique_ptr<frmOutput> m_window;
};

} // namespace obelmark
