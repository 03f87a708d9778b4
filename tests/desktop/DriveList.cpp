// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/DriveList.h"

#include "support/Cases.h"

using namespace obelmark;
using namespace Qt::StringLiterals;

class DriveListTest : public QObject
{
    Q_OBJECT
private slots:
    void drivesOfAUser()
    {
        QList<Volume> volumes;
        for (const QString &line : cases::linesOf(u"DriveList"_s, u"volumes"_s)) {
            const QStringList cells = cases::cellsOf(line);
            const QString &root = cells[0], is = cells.value(3);
            Volume volume{.drive = {root, root, 5, is.contains(u"removable")},
                          .fileSystem = cells[1],
                          .device = cells[2].toULongLong(),
                          .bytesTotal = is.contains(u"empty") ? 0 : 10};
            volume.isFolder = is != u"file";
            volume.isReadOnly = is.contains(u"read-only");
            volume.drive.isWritable = !is.contains(u"locked");
            volume.home = is.section(u"home "_s, 1);
            volumes << volume;
        }
        QStringList shown;
        for (const Drive &drive : drivesAmong(volumes))
            shown << drive.name + (drive.isWritable ? u" "_s : u" (locked) "_s) + drive.root;
        QCOMPARE(shown, cases::linesOf(u"DriveList"_s, u"shown"_s));
    }
};

QTEST_GUILESS_MAIN(DriveListTest)
#include "DriveList.moc"
