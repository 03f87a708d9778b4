// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/ProgramWindows.h"

#include "common/SharedState.h"
#include "custom_reports/windows/frmRptSpec.h"
#include "find/windows/frmFind.h"
#include "pictures/frmImage.h"

namespace obelmark {

ProgramWindows::ProgramWindows(SharedState &shared) : output(shared), m_shared(shared) {}

ProgramWindows::~ProgramWindows()
{
    delete m_designer;
}

frmFind &ProgramWindows::find()
{
    if (!m_find)
        m_find = std::make_unique<frmFind>(m_shared);
    return *m_find;
}

frmImage &ProgramWindows::image()
{
    if (!m_image)
        m_image = std::make_unique<frmImage>(m_shared);
    return *m_image;
}

frmRptSpec &ProgramWindows::designer()
{
    if (!m_designer)
        m_designer = new frmRptSpec(m_shared, output);
    return *m_designer;
}

} // namespace obelmark
