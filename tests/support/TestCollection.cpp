// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestCollection.h"

#include <QtCore>
#include <SQLiteCpp/SQLiteCpp.h>

namespace obelmark {

TestCollection::TestCollection() : m_previousFolder(QDir::currentPath())
{
    if (!QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/coin.mdb"), databasePath()))
        qFatal("the delivered coin.mdb could not be copied");
    QFile::setPermissions(databasePath(), QFile::ReadOwner | QFile::WriteOwner);
    QDir::setCurrent(folder());
}

TestCollection::~TestCollection()
{
    QDir::setCurrent(m_previousFolder);
}

void TestCollection::exec(const QString &sql) const
{
    SQLite::Database database(databasePath().toStdString(), SQLite::OPEN_READWRITE);
    database.exec(sql.toStdString());
}

QStringList TestCollection::query(const QString &sql, const QString &file) const
{
    SQLite::Database database((folder() + file).toStdString(), SQLite::OPEN_READWRITE);
    SQLite::Statement statement(database, sql.toStdString());
    QStringList rows;
    while (statement.executeStep()) {
        QStringList cells;
        for (int i = 0; i < statement.getColumnCount(); ++i) {
            const auto column = statement.getColumn(i);
            cells << (column.isNull() ? u"NULL"_s : QString::fromStdString(column.getString()));
        }
        rows << cells.join(u'|');
    }
    return rows;
}

void TestCollection::addPicture(const QString &name) const
{
    QDir(folder()).mkpath(u"images"_s);
    QFile file(u"%1images/%2"_s.arg(folder(), name));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("a picture file could not be made");
}

} // namespace obelmark
