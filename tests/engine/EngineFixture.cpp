// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include <QtCore>

namespace obelmark {

namespace {

QString folderTemplate()
{
    // Every write is flushed: on a disk that would be most of a test's time.
    const QFileInfo memory(u"/dev/shm"_s);
    return (memory.isWritable() ? memory.filePath() : QDir::tempPath()) + "/obelmark-XXXXXX"_L1;
}

} // namespace

QByteArray coinSchema()
{
    QFile script(QStringLiteral(OBELMARK_COIN_SQL));
    if (!script.open(QIODevice::ReadOnly))
        qFatal("the schema cannot be read");
    return script.readAll();
}

CoinFile::CoinFile() : m_folder(folderTemplate())
{
    shell(u".read "_s + QStringLiteral(OBELMARK_COIN_SQL));
}

QString CoinFile::shell(const QString &sql) const
{
    QProcess sqlite3;
    sqlite3.start(u"sqlite3"_s, {path()});
    sqlite3.write(sql.toUtf8() + '\n');
    sqlite3.closeWriteChannel();
    if (!sqlite3.waitForFinished())
        qFatal("the sqlite3 shell is needed for this test");
    return QString::fromUtf8(sqlite3.readAllStandardOutput() + sqlite3.readAllStandardError()).trimmed();
}

std::unique_ptr<Database> CoinFile::open(const FaultHook &faultHook) const
{
    return Database::open(path(), Database::Access::Exclusive, {u"Coin"_s, u"category"_s}, faultHook);
}

int errorOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const NumberedError &error) {
        return error.number();
    }
    return 0;
}

QString errorTextOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const NumberedError &error) {
        return error.description();
    }
    return {};
}

qint64 addRow(Dynaset &rows, std::initializer_list<std::pair<QStringView, Value>> fields)
{
    rows.addNew();
    for (const auto &[field, value] : fields)
        rows.setValue(field, value);
    const qint64 key = rows.value(u"coinid").toInt();
    rows.update();
    return key;
}

} // namespace obelmark
