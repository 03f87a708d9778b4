// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/windows/OutputWindow.h"
#include <QPointer>
#include <memory>

namespace obelmark {

class frmFind;
class frmImage;
class frmRptSpec;
struct SharedState;

/// The windows of which the program has one each and that outlive the main window: a backup or a packing
/// closes the main window and opens another, while these stay.
struct ProgramWindows
{
    explicit ProgramWindows(SharedState &shared);
    ~ProgramWindows();
    ProgramWindows(const ProgramWindows &) = delete;
    ProgramWindows &operator=(const ProgramWindows &) = delete;

    /// The Find dialog, made when it is first asked for, with the fields of UseWith. \throws CatalogueError
    frmFind &find();
    /// The picture window, made when it is first asked for.
    frmImage &image();
    /// Null when it has not been made yet.
    frmImage *madeImage() const { return m_image.get(); }
    /// The report designer, made when there is none on screen. \throws CatalogueError
    frmRptSpec &designer();
    /// The window of the reports on the preview.
    OutputWindow output;

private:
    SharedState &m_shared;
    std::unique_ptr<frmFind> m_find;
    std::unique_ptr<frmImage> m_image;
    QPointer<frmRptSpec> m_designer; ///< deletes itself when it is closed
};

} // namespace obelmark
