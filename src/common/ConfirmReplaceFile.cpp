// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/ConfirmReplaceFile.h"

#include "desktop/Desktop.h"
#include <QFileInfo>

namespace obelmark {

using namespace Qt::StringLiterals;

bool ConfirmReplaceFile(Desktop &desktop, const QString &path, const QString &kind)
{
    if (!QFileInfo::exists(path))
        return false;
    const auto answer = desktop.askYesNo(
        u"The %1 '%2' already exists.  Do you wish to replace it?"_s.arg(kind, path), u"File Exists"_s);
    return answer == Desktop::Answer::No;
}

} // namespace obelmark
