// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/FreeName.h"

#include "engine/care/JournalFiles.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

QString nameBeside(const QString &path, const QString &role)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    return file.dir().filePath(file.completeBaseName() + u'-' + role + suffix);
}

QString freeName(const QString &path, const QString &role)
{
    for (int attempt = 1;; ++attempt) {
        const QString name = nameBeside(path, attempt > 1 ? u"%1-%2"_s.arg(role).arg(attempt) : role);
        const auto isTaken = [&](QLatin1StringView companion) { return QFileInfo::exists(name + companion); };
        if (!QFileInfo::exists(name) && std::none_of(journalSuffixes.begin(), journalSuffixes.end(), isTaken))
            return name;
    }
}

} // namespace obelmark
