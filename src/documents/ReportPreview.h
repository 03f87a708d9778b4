// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

class ReportDocument;

/// The report output window as the reports see it. There is one for the whole program; it is made when it is
/// first needed and filled while hidden.
class ReportPreview
{
public:
    ReportPreview() = default;
    virtual ~ReportPreview() = default;
    ReportPreview(const ReportPreview &) = delete;
    ReportPreview &operator=(const ReportPreview &) = delete;

    /// The document in the window.
    virtual ReportDocument &document() = 0;
    /// Shows the window, or brings it to the front.
    virtual void show() = 0;
};

} // namespace obelmark
