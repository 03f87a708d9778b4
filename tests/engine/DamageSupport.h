#pragma once

#include <QString>
#include <QStringList>
#include <map>

namespace obelmark {

/// The rows of a table by their key, every column as its storage class and text, as the SQLite library itself
/// reads them.
using StoredRows = std::map<qint64, QStringList>;
StoredRows storedRows(const QString &path, const QString &table = QStringLiteral("Coin"));

/// The answer of the library's own check, "ok" for a whole file. Opening rolls back an interrupted write.
QString integrity(const QString &path);

/// Makes a coin database from its schema, with so many coins: numbers missing in between, accents, nulls,
/// notes from none to several pages. The coin added last is deleted again.
void createCollection(const QString &path, int coins);

QByteArray fileContent(const QString &path);
void setFileContent(const QString &path, const QByteArray &content);

} // namespace obelmark
