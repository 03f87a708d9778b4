#include "desktop/qt/DriveList.h"

#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class DriveListTest : public QObject
{
    Q_OBJECT
private slots:
    void drivesOfAUser()
    {
        const auto volume = [](const QString &root, const QString &fileSystem, quint64 device,
                               bool removable = false) {
            return Volume{.drive = {root, root, 5, removable},
                          .fileSystem = fileSystem,
                          .device = device,
                          .bytesTotal = 10};
        };
        const auto locked = [&](const QString &root, quint64 device, bool removable,
                                const QString &home = {}) {
            Volume made = volume(root, u"ext4"_s, device, removable);
            made.drive.isWritable = false;
            made.home = home;
            return made;
        };
        Volume empty = volume(u"/mnt/empty"_s, u"ext4"_s, 20);
        empty.bytesTotal = 0;
        Volume file = volume(u"/etc/hosts"_s, u"ext4"_s, 21);
        file.isFolder = false;
        Volume disc = volume(u"/media/cdrom"_s, u"iso9660"_s, 22, true);
        disc.isReadOnly = true;
        const QList<Volume> volumes{volume(u"/proc"_s, u"proc"_s, 1),
                                    volume(u"/dev"_s, u"devtmpfs"_s, 2),
                                    volume(u"/srv/chroot/dev"_s, u"devtmpfs"_s, 2),
                                    volume(u"/run/user/1000"_s, u"tmpfs"_s, 3),
                                    volume(u"/run/media/me/CARD"_s, u"exfat"_s, 4, true),
                                    volume(u"/tmp"_s, u"tmpfs"_s, 5),
                                    volume(u"/boot/efi"_s, u"vfat"_s, 6),
                                    volume(u"/home/me/second place"_s, u"ext4"_s, 7),
                                    volume(u"/"_s, u"ext4"_s, 7),
                                    volume(u"/home"_s, u"ext4"_s, 8),
                                    volume(u"/media/me/STICK"_s, u"vfat"_s, 9, true),
                                    volume(u"/devices"_s, u"ext4"_s, 10),
                                    volume(u"/snap/core/1"_s, u"squashfs"_s, 11),
                                    empty,
                                    file,
                                    disc,
                                    locked(u"/media/me/ROOTS"_s, 23, true),
                                    locked(u"/srv"_s, 24, false),
                                    locked(u"/users"_s, 25, false, u"/users/me"_s)};
        QStringList texts;
        for (const Drive &drive : drivesAmong(volumes))
            texts << drive.name + (drive.isWritable ? u" "_s : u" (locked) "_s) + drive.root;
        const QStringList expected{u"/media/me/ROOTS (locked) /media/me/ROOTS"_s,
                                   u"/media/me/STICK /media/me/STICK"_s,
                                   u"/run/media/me/CARD /run/media/me/CARD"_s,
                                   u"/ /"_s,
                                   u"/devices /devices"_s,
                                   u"/home /home"_s,
                                   u"Home /users/me"_s};
        QCOMPARE(texts, expected);
    }
};

QTEST_GUILESS_MAIN(DriveListTest)
#include "DriveList.moc"
