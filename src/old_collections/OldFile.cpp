// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/OldFile.h"

#include <QFile>
#include <QFileInfo>

namespace obelmark {

bool isOldFile(const QString &path)
{
    static constexpr qint64 signatureAt = 4;
    static constexpr const char *signatures[] = {"Standard Jet DB", "Standard ACE DB"};
    QFile file(path);
    // To open a named pipe is to wait for ever.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.read(signatureAt + 16);
    return std::any_of(std::begin(signatures), std::end(signatures), [&](const char *signature) {
        return QByteArrayView(start).sliced(qMin(signatureAt, start.size())).startsWith(signature);
    });
}

} // namespace obelmark
