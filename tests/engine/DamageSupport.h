// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtCore>
#include <map>

namespace obelmark {

/// The rows of a table by their key, every column as its storage class and text, as the SQLite library itself
/// reads them.
using StoredRows = std::map<qint64, QByteArrayList>;
StoredRows storedRows(const QString &path, const QString &table = QStringLiteral("Coin"));

/// The answer of the library's own check, "ok" for a whole file. Opening rolls back an interrupted write.
QString integrity(const QString &path);

/// Adds so many coins to a file without any: numbers missing in between, accents, nulls, notes from none to
/// several pages. The coins from 300 to 499 and the one added last are deleted again.
void addCoins(const QString &path, int coins);

QByteArray fileContent(const QString &path);
void setFileContent(const QString &path, const QByteArray &content);

} // namespace obelmark
