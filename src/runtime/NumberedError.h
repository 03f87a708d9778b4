// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <stdexcept>

namespace obelmark {

/// The numbers of the errors that conversions and file operations raise. The engine has its own above 3000.
enum RuntimeErrorNumber {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
};

/// An error as the user may come to see it: a number that decides what the program does about it, and a
/// description of one line. Every error that the lower floors raise is one of these.
class NumberedError : public std::runtime_error
{
public:
    NumberedError(int number, const QString &description);

    int number() const { return m_number; }
    const QString &description() const { return m_description; }

private:
    int m_number;
    QString m_description;
};

/// The runtime's error of that number with the description that belongs to it.
NumberedError runtimeError(RuntimeErrorNumber number);

} // namespace obelmark
