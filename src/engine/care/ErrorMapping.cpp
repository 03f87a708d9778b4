// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/ErrorMapping.h"
#include "engine/language/EngineError.h"
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void raiseRuntimeError(RuntimeErrorNumber number)
{
    throw EngineError(int(number), runtimeError(number).description());
}

/// SQLite tells what is wrong with a query only by its message: "no such column: xyz".
[[noreturn]] void raiseQueryError(const QString &message, const QString &expression)
{
    struct MessageStart
    {
        QLatin1StringView start;
        EngineErrorNumber number;
    };
    static constexpr MessageStart starts[] = {
        {"no such column: "_L1, UnknownColumn},
        {"no such table: "_L1, UnknownTable},
        {"ambiguous column name: "_L1, AmbiguousColumn},
    };
    for (const MessageStart &entry : starts) {
        if (message.startsWith(entry.start)) {
            const QString name = message.mid(entry.start.size());
            throw EngineError(entry.number, name.startsWith("main."_L1) ? name.mid(5) : name);
        }
    }
    throw EngineError(SyntaxError, expression);
}

} // namespace

void raiseSqlError(int resultCode, const char *message, const SqlActivity &activity)
{
    using enum SqlActivity::Kind;
    switch (resultCode & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        if (activity.kind == Writing)
            throw EngineError(RecordLocked);
        throw EngineError(FileInUse, activity.path);
    case SQLITE_NOTADB:
        throw EngineError(UnrecognizedFormat, activity.path);
    case SQLITE_CORRUPT:
        throw EngineError(DatabaseDamaged, activity.path);
    case SQLITE_FULL:
        raiseRuntimeError(DiskFull);
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        raiseRuntimeError(PermissionDenied);
    case SQLITE_CANTOPEN:
        raiseRuntimeError(activity.kind == Opening ? PermissionDenied : PathFileAccess);
    case SQLITE_IOERR:
        raiseRuntimeError(PathFileAccess);
    case SQLITE_TOOBIG:
        throw EngineError(FieldTooSmall);
    case SQLITE_MISMATCH:
        throw EngineError(DataTypeConversion);
    case SQLITE_ERROR:
        // A file format newer than this library knows is reported in this way too.
        if (activity.kind == Opening)
            throw EngineError(UnrecognizedFormat, activity.path);
        if (activity.kind == Reading)
            raiseQueryError(QString::fromUtf8(message), activity.expression);
        break;
    default:
        break;
    }
    throw EngineError(int(PathFileAccess), QString::fromUtf8(message));
}

} // namespace obelmark
