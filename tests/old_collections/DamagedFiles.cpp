// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "OldCollectionFixture.h"
#include "support/UnsyncedVfs.h"
#include <QTest>
#include <random>

using namespace obelmark;

namespace {

/// What disks, copying and other programs do to files.
QByteArray damaged(QByteArray bytes, std::mt19937 &chance)
{
    const auto upTo = [&](qsizetype most) { return qsizetype(chance() % unsigned(most)); };
    const qsizetype page = (1 + upTo(bytes.size() / oldPageSize - 1)) * oldPageSize;
    switch (chance() % 5) {
    case 0: // single bytes anywhere
        for (qsizetype i = upTo(40); i >= 0; --i)
            bytes[upTo(bytes.size())] = char(chance());
        break;
    case 1: // in the head of a page, where everything else hangs
        for (qsizetype i = upTo(8); i >= 0; --i)
            bytes[page + upTo(64)] = char(chance());
        break;
    case 2: // a page of garbage
        for (qsizetype i = 0; i < oldPageSize; ++i)
            bytes[page + i] = char(chance());
        break;
    case 3: // a page of another place
        bytes.replace(page, oldPageSize,
                      bytes.sliced(upTo(bytes.size() / oldPageSize) * oldPageSize, oldPageSize));
        break;
    default: // cut off
        bytes.truncate(oldPageSize + upTo(bytes.size() - oldPageSize));
    }
    return bytes;
}

} // namespace

class DamagedFiles : public QObject
{
    Q_OBJECT
private slots:
    void refused()
    {
        const QByteArray whole = OldCollectionFixture::original();
        QByteArray locked = whole;
        locked[0x42] = char(locked[0x42] ^ 'a');
        const std::pair<QByteArray, QString> files[] = {
            {locked,
             u"It is protected by a password.  Remove the password with the program that has set it, then try again."_s},
            {whole.first(oldPageSize), u"It is damaged: its list of tables cannot be read."_s},
            {whole.first(100), u"It cannot be opened or is damaged."_s},
            {QByteArray(whole).replace("C\0o\0i\0n\0"_ba, "C\0a\0r\0d\0"_ba),
             u"It has no table 'Coin':  it is damaged, or no file of this program."_s},
            {QByteArray(whole).replace("c\0o\0i\0n\0i\0d\0"_ba, QByteArray(12, '\x7f')),
             u"It is damaged: no record of its table 'Coin' can be read."_s}};
        for (const auto &[bytes, reason] : files) {
            OldCollectionFixture f;
            f.write(u"coin.mdb"_s, bytes);
            f.agree();
            f.desktop.expectMessage(u"'coin.mdb' could not be taken over and is as it was.\n\n"_s + reason,
                                    u"Older Version"_s);
            QVERIFY(!f.takeOver());
            QCOMPARE(f.desktop.problems(), QStringList());
            QCOMPARE(f.files(), QStringList{u"coin.mdb"_s});
            QCOMPARE(f.read(u"coin.mdb"_s), bytes);
        }
    }

    /// The user learns what is missing before anything is changed, and decides.
    void partlyReadable()
    {
        const QByteArray whole = OldCollectionFixture::original();
        QByteArray lostPlace = whole;
        putNumber<quint16>(lostPlace, pageOf(whole, u"Circulating") + 14, 0x1fff); // of the page's first row
        const std::pair<QByteArray, QString> files[] = {
            {lostPlace, u"Coin: 409\nboughtfrom: 4\ncategory: 4 of 6, 2 unreadable records\n"
                        "condition: 8\ncountry: 9\nformat: 5\nmint: 7\ntype: 4"_s},
            {whole.chopped(1), // of the page on which the last coins lie
             u"Coin: 408 of 409, 1 unreadable record\nboughtfrom: 4\ncategory: 6\n"
             "condition: 8\ncountry: 9\nformat: 5\nmint: 7\ntype: 4"_s}};
        for (const auto &[bytes, records] : files) {
            OldCollectionFixture f;
            f.write(u"coin.mdb"_s, bytes);
            f.agree();
            f.desktop.answerYesNo(
                u"'coin.mdb' is damaged: not everything in it can be read.\n\nRecords in each "
                "table:\n%1\n\nDo you wish to take over what can be read?  The old file is kept "
                "either way."_s.arg(records),
                u"Older Version"_s, Desktop::Answer::No);
            QVERIFY(!f.takeOver());
            QCOMPARE(f.desktop.problems(), QStringList());
            QCOMPARE(f.files(), QStringList{u"coin.mdb"_s});
            QCOMPARE(f.read(u"coin.mdb"_s), bytes);
        }
    }

    void anyDamage()
    {
        constexpr int files = 80;
        int takenOver = 0;
        for (unsigned seed = 1; seed <= files; ++seed) {
            std::mt19937 chance(seed);
            const QByteArray bytes = damaged(OldCollectionFixture::original(), chance);
            OldCollectionFixture f;
            f.write(u"coin.mdb"_s, bytes);
            Agreeing user;
            const bool done = f.takeOver(user);
            const QByteArray which = "seed " + QByteArray::number(seed);
            QCOMPARE(user.messages.size(), bytes.startsWith(f.original().first(20)) ? 1 : 0);
            if (user.messages.isEmpty())
                continue;
            QVERIFY2(
                user.messages[0].contains(done ? u"has been taken over"_s : u"could not be taken over"_s),
                which.constData());
            QVERIFY2(f.read(done ? u"coin-old.mdb"_s : u"coin.mdb"_s) == bytes, which.constData());
            QVERIFY2(f.files().size() == (done ? 2 : 1), which.constData());
            if (done) {
                ++takenOver;
                QVERIFY2(f.query(u"select count(*) > 0 from Coin"_s) == QStringList{u"1"_s},
                         which.constData());
            }
        }
        QVERIFY2(takenOver > files / 2, qPrintable(QString::number(takenOver))); // most have lost only a part
    }

    void noRoom()
    {
        for (const std::optional<qint64> &freeSpace : {std::optional<qint64>(), {0}, {200'000}}) {
            OldCollectionFixture f;
            Agreeing user;
            bool done = true;
            if (freeSpace) { // full at once or later; else no permission
                UnsyncedVfs disk;
                disk.setFreeSpace(freeSpace);
                done = f.takeOver(user);
                disk.setFreeSpace({});
            } else {
                // Root may write everywhere, but not over a folder.
                QVERIFY(QDir(f.path({})).mkpath(u"coin-taking-over.mdb/x"_s));
                done = f.takeOver(user);
            }
            QVERIFY(!done);
            QCOMPARE(user.messages.size(), 1);
            QVERIFY2(
                user.messages[0].startsWith(u"'coin.mdb' could not be taken over and is as it was.\n\n"_s),
                qPrintable(user.messages[0]));
            if (freeSpace)
                QVERIFY2(user.messages[0].contains(u"Disk full"_s), qPrintable(user.messages[0]));
            QCOMPARE(f.read(u"coin.mdb"_s), f.original());
            QCOMPARE(f.files().size(), freeSpace ? 1 : 2);
        }
    }
};

QTEST_GUILESS_MAIN(DamagedFiles)
#include "DamagedFiles.moc"
