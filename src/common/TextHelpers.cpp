// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/TextHelpers.h"

#include <QDir>

namespace obelmark {

QString GetField(const QString &text, QChar delimiter, int n)
{
    return n < 1 ? QString() : text.section(delimiter, n - 1, n - 1);
}

int CountFields(const QString &text, QChar delimiter)
{
    return text.isEmpty() ? 0 : int(text.count(delimiter)) + 1;
}

QString PadLeft(const QString &text, int width)
{
    return text.rightJustified(width);
}

QString pathInAnyCase(const QString &folder, const QString &name)
{
    const QDir dir(folder);
    if (dir.exists(name))
        return folder + name;
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder + entry;
    }
    return folder + name;
}

} // namespace obelmark
