// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/EngineError.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

struct ErrorText
{
    EngineErrorNumber number;
    const char16_t *text; ///< with "|" where the file, field or expression goes
};

constexpr ErrorText errorTexts[] = {
    {UpdateWithoutEdit, u"Update or CancelUpdate without AddNew or Edit."},
    {NoCurrentRecord, u"No current record."},
    {DatabaseFileNotFound, u"Could not find file '|'."},
    {FileTakenAway, u"Another program has renamed, replaced or changed the file '|' while it was in use."},
    {InvalidPath, u"'|' is not a valid path."},
    {FileInUse, u"Could not use '|'; file already in use."},
    {DatabaseDamaged,
     u"Cannot open database '|'.  It may not be a database that your application recognizes, or "
     u"the file may be corrupt."},
    {UnknownColumn, u"Too few parameters. Expected 1."},
    {SyntaxError, u"Syntax error in query expression '|'."},
    {UnknownTable, u"Could not find input table or query '|'."},
    {AmbiguousColumn,
     u"The specified field '|' could refer to more than one table listed in the FROM clause of "
     u"your SQL statement."},
    {FieldTooSmall, u"The field is too small to accept the amount of data you attempted to add."},
    {RecordDeleted, u"Record is deleted."},
    {RecordLocked, u"Could not update; currently locked."},
    {NewerVersion,
     u"'|' was last used by a newer version of this program, and only that can use it.  Nothing in "
     u"it has been changed."},
    {UnrecognizedFormat, u"Unrecognized database format '|'."},
    {ObjectClosed, u"Object is invalid or no longer set."},
    {DataTypeConversion, u"Data type conversion error."},
};

QString errorText(EngineErrorNumber number, const QString &about)
{
    for (const ErrorText &entry : errorTexts) {
        if (entry.number == number)
            return QString::fromUtf16(entry.text).replace(u"|"_s, about);
    }
    Q_UNREACHABLE();
}

} // namespace

EngineError::EngineError(EngineErrorNumber number, const QString &about)
    : NumberedError(number, errorText(number, about))
{
}

EngineError::EngineError(int number, const QString &description) : NumberedError(number, description) {}

} // namespace obelmark
