// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "old_collections/TakeOver.h"
#include "support/ScriptedDesktop.h"
#include <QtCore>
#include <SQLiteCpp/SQLiteCpp.h>

namespace obelmark {

using namespace Qt::StringLiterals;

/// A user who says Yes to everything.
class Agreeing : public ScriptedDesktop
{
public:
    Answer askYesNo(const QString &, const QString &) override { return Answer::Yes; }
    void showMessage(const QString &text, const QString &, Icon) override { messages << text; }
    QStringList messages;
};

/// A program folder with a collection of old.
class OldCollectionFixture
{
public:
    OldCollectionFixture() { write(u"coin.mdb"_s, original()); }

    static QByteArray dataFile(const char *name)
    {
        QFile file(QStringLiteral(OBELMARK_TEST_DATA "/") + QString::fromLatin1(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QByteArray original()
    {
        static const QByteArray bytes = dataFile("coin.mdb");
        return bytes;
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s cannot be written", qPrintable(path(name)));
    }
    QStringList files() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    bool takeOver() { return takeOver(desktop); }
    bool takeOver(Desktop &user) { return offerTakeOver(m_folder.path() + u'/', user); }

    /// The rows of a query on coin.mdb, columns joined by "|".
    QStringList query(const QString &sql, const QString &name = u"coin.mdb"_s) const
    {
        SQLite::Database database(path(name).toStdString());
        SQLite::Statement statement(database, sql.toStdString());
        QStringList rows;
        while (statement.executeStep()) {
            QStringList cells;
            for (int i = 0; i < statement.getColumnCount(); ++i)
                cells << (statement.isColumnNull(i)
                              ? u"\\N"_s
                              : QString::fromStdString(statement.getColumn(i).getString()));
            rows << cells.join(u'|');
        }
        return rows;
    }

    void agree(const QString &keptName = u"coin-old.mdb"_s, Desktop::Answer answer = Desktop::Answer::Yes)
    {
        desktop.answerYesNo(
            u"'coin.mdb' in the program folder was written by an older version of this program, whose files "
            u"this "
            "version cannot use as they are.  The contents can be taken over into a new file.\n\n"
            "Nothing is lost: the old file is kept as '%1'.\n\n"
            "Do you wish to take over the contents now?  If not, the program ends and nothing is changed."_s
                .arg(keptName),
            u"Older Version"_s, answer);
    }

    ScriptedDesktop desktop;

private:
    QTemporaryDir m_folder;
};

/// Places in a file of old.
inline constexpr qsizetype oldPageSize = 4096;

template<class Number>
Number numberAt(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

template<class Number>
void putNumber(QByteArray &bytes, qsizetype at, Number number)
{
    qToLittleEndian(number, bytes.data() + at);
}

/// A text as the file holds it.
inline QByteArray inFile(QStringView text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

/// The start of the page that holds a text.
inline qsizetype pageOf(const QByteArray &bytes, QStringView text)
{
    return bytes.indexOf(inFile(text)) / oldPageSize * oldPageSize;
}

/// Changes the number of rows that the table of a data page declares.
inline void declareRows(QByteArray &bytes, qsizetype page, qint32 rows)
{
    putNumber<qint32>(bytes, numberAt<qint32>(bytes, page + 4) * oldPageSize + 16, rows);
}

} // namespace obelmark
