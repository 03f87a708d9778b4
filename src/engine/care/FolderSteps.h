// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace obelmark {

/// Steps on a folder's files that are undone, the last first, unless they are kept.
class FolderSteps
{
public:
    FolderSteps() = default;
    ~FolderSteps();
    FolderSteps(const FolderSteps &) = delete;
    FolderSteps &operator=(const FolderSteps &) = delete;

    /// Gives a file a new name; one that had that name before is gone for good.
    /// \throws DiskFull or PathFileAccess, the description naming the file and the reason
    void rename(const QString &from, const QString &to);
    /// Gives a file a second name. Answers whether the file system can.
    bool link(const QString &from, const QString &to);
    void keep() { m_undo.clear(); }

private:
    std::vector<std::function<void()>> m_undo;
};

/// Gives a finished file its name unless there is a file of that name. \throws PathFileAccess when there is,
/// and others
void publish(const QString &unfinished, const QString &newPath);

} // namespace obelmark
