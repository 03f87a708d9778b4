#include "structure/SourceTree.h"

#include <QHash>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace Qt::StringLiterals;
using namespace obelmark;

namespace {

struct Floor
{
    QLatin1StringView folder;
    int number;
};

/// A folder may include itself and the folders below its floor. A folder inside another belongs to it unless
/// it has a line of its own: the real windows of desktop/qt are for main.cpp alone, everyone else asks
/// through desktop/.
constexpr Floor floors[] = {
    {"main.cpp"_L1, 8}, {"editor"_L1, 7},          {"desktop/qt"_L1, 7}, {"find"_L1, 6},   {"lookups"_L1, 5},
    {"dates"_L1, 4},    {"custom_reports"_L1, 5},  {"reports"_L1, 4},    {"backup"_L1, 4}, {"pictures"_L1, 4},
    {"store"_L1, 4},    {"common"_L1, 3},          {"forms"_L1, 3},      {"engine"_L1, 2}, {"runtime"_L1, 1},
    {"desktop"_L1, 1},  {"old_collections"_L1, 4},
};

const Floor *floorOf(const QString &file)
{
    const Floor *best = nullptr;
    for (const Floor &floor : floors) {
        const bool inside = file == floor.folder || file.startsWith(floor.folder + '/'_L1);
        if (inside && (!best || floor.folder.size() > best->folder.size()))
            best = &floor;
    }
    return best;
}

bool isGenerated(const QString &include)
{
    return include.startsWith("ui_"_L1) || include.endsWith(".moc"_L1);
}

/// What is wrong with one include, or nothing.
std::optional<QString> faultOf(const QString &from, const QString &to)
{
    const Floor *lower = floorOf(to);
    if (!lower)
        return u"%1 includes %2, which is in no folder of the table"_s.arg(from, to);
    const Floor *upper = floorOf(from);
    if (upper && upper != lower && upper->number <= lower->number)
        return u"%1 (floor %2) includes %3 (floor %4)"_s.arg(from)
            .arg(upper->number)
            .arg(to)
            .arg(lower->number);
    return {};
}

using Arrows = QHash<QString, QStringList>;

/// Follows the arrows from \a file and reports the circles they close.
void findCircles(const QString &file, const Arrows &arrows, QStringList &way, QSet<QString> &done,
                 QStringList &faults)
{
    if (const qsizetype start = way.indexOf(file); start >= 0) {
        faults << u"circle: %1"_s.arg((way.mid(start) << file).join(" -> "_L1));
        return;
    }
    if (done.contains(file))
        return;
    way << file;
    for (const QString &next : arrows.value(file))
        findCircles(next, arrows, way, done, faults);
    way.removeLast();
    done << file;
}

QStringList faultsOf(const QDir &root)
{
    QStringList faults;
    Arrows arrows;
    const QStringList files = sourceFiles(root);
    for (const QString &file : files) {
        if (!floorOf(file))
            faults << u"%1 is in no folder of the table"_s.arg(file);
        for (const QString &include : includesOf(root.filePath(file), u'"', u'"')) {
            if (isGenerated(include))
                continue;
            arrows[file] << include;
            if (const auto fault = faultOf(file, include))
                faults << *fault;
        }
    }
    QStringList way;
    QSet<QString> done;
    for (const QString &file : files)
        findCircles(file, arrows, way, done, faults);
    return faults;
}

} // namespace

class IncludeArrows : public QObject
{
    Q_OBJECT

private slots:
    void runDownTheFloors();
    void faultIsReported_data();
    void faultIsReported();
};

void IncludeArrows::runDownTheFloors()
{
    const QDir src(QStringLiteral(OBELMARK_SOURCE_DIR "/src"));
    QVERIFY2(sourceFiles(src).size() > 20, "the source tree is not where the check looks for it");
    const QStringList faults = faultsOf(src);
    QVERIFY2(faults.isEmpty(), qPrintable('\n'_L1 + faults.join('\n'_L1)));
}

void IncludeArrows::faultIsReported_data()
{
    QTest::addColumn<QStringList>("lines"); // "file: what it includes"
    QTest::addColumn<QStringList>("faults");

    QTest::newRow("downwards, inside a folder and generated: no fault")
        << QStringList{u"main.cpp: desktop/qt/RealDesktop.h"_s,
                       u"desktop/qt/RealDesktop.h: desktop/Desktop.h"_s,
                       u"editor/frmMain.cpp: ui_frmMain.h"_s,
                       u"editor/frmMain.cpp: frmMain.moc"_s,
                       u"editor/frmMain.cpp: editor/frmMain.h"_s,
                       u"editor/frmMain.h: runtime/Money.h"_s}
        << QStringList();
    QTest::newRow("upwards") << QStringList{u"engine/Database.cpp: store/CoinFile.h"_s}
                             << QStringList{
                                    u"engine/Database.cpp (floor 2) includes store/CoinFile.h (floor 4)"_s};
    QTest::newRow("across a floor")
        << QStringList{u"reports/Table.h: store/CoinFile.h"_s}
        << QStringList{u"reports/Table.h (floor 4) includes store/CoinFile.h (floor 4)"_s};
    QTest::newRow("the real windows from elsewhere than main.cpp")
        << QStringList{u"editor/frmMain.cpp: desktop/qt/RealDesktop.h"_s}
        << QStringList{u"editor/frmMain.cpp (floor 7) includes desktop/qt/RealDesktop.h (floor 7)"_s};
    QTest::newRow("the interface includes the real windows")
        << QStringList{u"desktop/Desktop.h: desktop/qt/RealDesktop.h"_s}
        << QStringList{u"desktop/Desktop.h (floor 1) includes desktop/qt/RealDesktop.h (floor 7)"_s};
    QTest::newRow("not written from src/")
        << QStringList{u"engine/Database.cpp: Database.h"_s}
        << QStringList{u"engine/Database.cpp includes Database.h, which is in no folder of the table"_s};
    QTest::newRow("a folder that the table does not know")
        << QStringList{u"utilities/Misc.h: runtime/Money.h"_s}
        << QStringList{u"utilities/Misc.h is in no folder of the table"_s};
    QTest::newRow("a circle of two files")
        << QStringList{u"engine/A.h: engine/B.h"_s, u"engine/B.h: engine/A.h"_s}
        << QStringList{u"circle: engine/A.h -> engine/B.h -> engine/A.h"_s};
    QTest::newRow("a circle behind a file that is not in it")
        << QStringList{u"engine/A.cpp: engine/B.h"_s, u"engine/B.h: engine/C.h"_s,
                       u"engine/C.h: engine/D.h"_s, u"engine/D.h: engine/B.h"_s}
        << QStringList{u"circle: engine/B.h -> engine/C.h -> engine/D.h -> engine/B.h"_s};
}

void IncludeArrows::faultIsReported()
{
    QFETCH(QStringList, lines);
    QFETCH(QStringList, faults);

    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QDir root(folder.path());
    for (const QString &line : lines) {
        const QString path = line.section(u": "_s, 0, 0);
        QVERIFY(root.mkpath(QFileInfo(path).path()));
        QFile file(root.filePath(path));
        QVERIFY(file.open(QIODevice::Append));
        file.write("#pragma once\n#include <QString>\n  # include \"" + line.section(u": "_s, 1).toUtf8() +
                   "\"\n");
    }
    QCOMPARE(faultsOf(root), faults);
}

QTEST_GUILESS_MAIN(IncludeArrows)
#include "IncludeArrows.moc"
