// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/NumberedError.h"

namespace obelmark {

using namespace Qt::StringLiterals;

static QString description(RuntimeErrorNumber number)
{
    switch (number) {
    case Overflow:
        return u"Overflow"_s;
    case SubscriptOutOfRange:
        return u"Subscript out of range"_s;
    case TypeMismatch:
        return u"Type mismatch"_s;
    case FileNotFound:
        return u"File not found"_s;
    case DiskFull:
        return u"Disk full"_s;
    case InputPastEnd:
        return u"Input past end of file"_s;
    case PermissionDenied:
        return u"Permission denied"_s;
    case PathFileAccess:
        return u"Path/File access error"_s;
    case PathNotFound:
        return u"Path not found"_s;
    case ObjectNotSet:
        return u"Object variable or With block variable not set"_s;
    case InvalidUseOfNull:
        return u"Invalid use of Null"_s;
    }
    Q_UNREACHABLE();
}

NumberedError::NumberedError(int number, const QString &description)
    : std::runtime_error(description.toStdString()), m_number(number), m_description(description)
{
}

NumberedError runtimeError(RuntimeErrorNumber number)
{
    return NumberedError(number, description(number));
}

} // namespace obelmark
