// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace obelmark {

/// Tells the user how far a piece of work is. Nothing is seen of it during the first second; the real one
/// keeps the other windows blocked while it lives.
class Progress
{
public:
    Progress() = default;
    virtual ~Progress() = default;
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// \a done of \a total steps are done; a total of 0 means that nobody knows it. To be called often enough
    /// (about every 10 ms); most calls cost one look at the clock.
    /// Answers whether the work is to go on: false once the user has pressed Cancel.
    virtual bool update(const QString &text, qint64 done, qint64 total) = 0;
};

} // namespace obelmark
