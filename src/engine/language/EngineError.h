// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/NumberedError.h"

namespace obelmark {

/// The numbers of the engine's errors.
enum EngineErrorNumber {
    UpdateWithoutEdit = 3020,
    NoCurrentRecord = 3021,
    DatabaseFileNotFound = 3024,
    FileTakenAway = 3043,
    InvalidPath = 3044,
    FileInUse = 3045,
    DatabaseDamaged = 3049,
    UnknownColumn = 3061,
    SyntaxError = 3075,
    UnknownTable = 3078,
    AmbiguousColumn = 3079,
    FieldTooSmall = 3163,
    RecordDeleted = 3167,
    RecordLocked = 3260,
    NewerVersion = 3342,
    UnrecognizedFormat = 3343,
    ObjectClosed = 3420,
    DataTypeConversion = 3421,
};

/// An error of the database engine.
class EngineError : public NumberedError
{
public:
    /// The text that belongs to the number, \a about in the place it leaves for a file, a field or an
    /// expression.
    explicit EngineError(EngineErrorNumber number, const QString &about = {});
    /// An error that the layer below reported with a number of its own (a full disk is 61).
    EngineError(int number, const QString &description);
};

} // namespace obelmark
