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
        Volume empty = volume(u"/mnt/empty"_s, u"ext4"_s, 20);
        empty.bytesTotal = 0;
        Volume file = volume(u"/etc/hosts"_s, u"ext4"_s, 21);
        file.isFolder = false;
        Volume locked = volume(u"/media/cdrom"_s, u"iso9660"_s, 22, true);
        locked.isWritable = false;
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
                                    locked};
        QStringList roots;
        for (const Drive &drive : drivesAmong(volumes))
            roots << drive.root;
        QCOMPARE(roots, QStringList({u"/media/me/STICK"_s, u"/run/media/me/CARD"_s, u"/"_s, u"/devices"_s,
                                     u"/home"_s}));
    }
};

QTEST_GUILESS_MAIN(DriveListTest)
#include "DriveList.moc"
