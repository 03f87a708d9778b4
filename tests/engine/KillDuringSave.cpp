#include "engine/DamageSupport.h"
#include "engine/EngineFixture.h"
#include "engine/SaveLoop.h"
#include "engine/TextFold.h"
#include <QProcess>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <random>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// A process that saves coins is killed again and again: what it had reported as saved is in the file, and of
/// the save it was killed in either all or nothing.
class KillDuringSave : public QObject
{
    Q_OBJECT
private slots:
    void keepsWhatWasSaved();

private:
    /// The save whose values each coin has.
    using Coins = std::map<qint64, int>;

    static QByteArray outputUntilKilled(const QString &path, int firstSave, int saves);
    static Coins read(const QString &path);
};

QByteArray KillDuringSave::outputUntilKilled(const QString &path, int firstSave, int saves)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(SAVE_LOOP), {path, QString::number(firstSave)});
    QByteArray output;
    while (output.count("done") < saves && process.waitForReadyRead())
        output += process.readAllStandardOutput();
    process.kill();
    process.waitForFinished();
    return output + process.readAllStandardOutput();
}

KillDuringSave::Coins KillDuringSave::read(const QString &path)
{
    constexpr int mixed = -1; // values of more than one save
    Coins coins;
    SQLite::Database database(path.toStdString());
    SQLite::Statement query(database, "select coinid, descr, Year, notes, descrsort from Coin");
    while (query.executeStep()) {
        const auto text = [&](int column) {
            return QString::fromStdString(query.getColumn(column).getString());
        };
        const int save = text(1).section(u' ', 1).toInt();
        const SavedCoin expected(save);
        const bool whole = text(1) == expected.description && query.getColumn(2).getInt() == expected.year &&
                           text(3) == expected.notes && text(4) == foldText(expected.description);
        coins[query.getColumn(0).getInt64()] = whole ? save : mixed;
    }
    return coins;
}

void KillDuringSave::keepsWhatWasSaved()
{
    const CoinFile file;
    const QString path = file.path();
    std::mt19937 chance(20);
    Coins coins;
    int saves = 0;
    for (int round = 0; round < 120; ++round) {
        // The kill comes while the process is already in the midst of the next save.
        const QByteArray output =
            outputUntilKilled(path, saves, std::uniform_int_distribution(1, 15)(chance));
        Coins withBegunSave = coins;
        for (const QByteArray &line : output.split('\n')) {
            const QList<QByteArray> words = line.split(' ');
            saves += words.size() > 1;
            if (words[0] == "remove")
                withBegunSave.erase(words[1].toLongLong());
            else if (words[0] == "put")
                withBegunSave[words[1].toLongLong()] = words[2].toInt();
            else if (words[0] == "done")
                coins = withBegunSave;
        }
        const auto count = file.open()->openDynaset(u"select * from Coin order by descr"_s)->recordCount();
        QCOMPARE(integrity(path), u"ok"_s);
        const Coins found = read(path);
        QCOMPARE(count, qint64(found.size()));
        QVERIFY2(found == coins || found == withBegunSave, output.constData());
        coins = found;
    }
    QVERIFY2(saves > 800, qPrintable(QString::number(saves)));
}

QTEST_GUILESS_MAIN(KillDuringSave)
#include "KillDuringSave.moc"
