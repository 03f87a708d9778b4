// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/RowChange.h"
#include <QObject>

namespace obelmark {

/// What an action of the user's is, as the history calls it.
enum class StepKind { Add, Change, Delete, Sell, Picture, Entry, Import, Bulk, Restore, Undo, Redo };

/// What one action has changed in the file of the collection.
struct Changes
{
    /// The file has been opened anew, or repaired: any row may be another one now.
    bool everything = false;
    StepKind kind = StepKind::Change;
    QString what = {}; ///< the action, as a menu would say it: "Delete 'Morgan dollar 1881'"
    /// Coins and entries, in the order in which they were written.
    std::vector<RowChange> rows = {};
    /// The window that has done it, and need not be told.
    const QObject *by = nullptr;

    bool touches(QStringView table) const;
};

/// Tells every open window what has been written, as soon as it is in the file.
class CollectionSignal : public QObject
{
    Q_OBJECT
signals:
    void changed(const obelmark::Changes &changes);
};

} // namespace obelmark
