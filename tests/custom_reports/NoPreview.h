// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"

namespace obelmark {

/// A preview without a window, which counts how often it is shown.
class NoPreview : public ReportPreview
{
public:
    ReportDocument &document() override { return m_document; }
    void show() override { ++shown; }
    int shown = 0;

private:
    ReportDocument m_document;
};

} // namespace obelmark
