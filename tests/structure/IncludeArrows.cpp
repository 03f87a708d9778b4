// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QtTest>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The paths of the C++ files below \a root, relative to it, in order.
QStringList sourceFiles(const QDir &root)
{
    QStringList files;
    QDirIterator it(root.path(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files << root.relativeFilePath(it.next());
    files.sort();
    return files;
}

/// What stands in a file's #include lines between \a open and \a close.
QStringList includesOf(const QString &path, QChar open, QChar close)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression line(
        QStringLiteral("^[ \\t]*#[ \\t]*include[ \\t]*%1([^\\n]+?)%2").arg(open, close),
        QRegularExpression::MultilineOption);
    QStringList names;
    for (auto it = line.globalMatch(QString::fromUtf8(file.readAll())); it.hasNext();)
        names << it.next().captured(1);
    return names;
}

struct Floor
{
    QLatin1StringView folder;
    int number;
};

/// A folder may include itself and the folders below its floor. A folder inside another belongs to it unless
/// it has a line of its own: the real windows of desktop/qt are for main.cpp alone, everyone else asks
/// through desktop/.
constexpr Floor floors[] = {
    {"main.cpp"_L1, 13},
    {"editor"_L1, 12},
    {"desktop/qt"_L1, 12},
    {"find"_L1, 11},
    {"lookups"_L1, 10},
    {"custom_reports"_L1, 10},
    {"backup"_L1, 10},
    {"reports"_L1, 9},
    {"old_collections"_L1, 9},
    {"coins"_L1, 8},
    {"store"_L1, 6},
    {"dates"_L1, 6},
    {"pictures"_L1, 6},
    {"documents"_L1, 6},
    {"common"_L1, 5},
    {"forms"_L1, 5},
    {"pictures/metafiles"_L1, 5},
    {"engine/rows"_L1, 4},
    {"engine/care"_L1, 3},
    {"engine/language"_L1, 2},
    {"runtime"_L1, 1},
    {"desktop"_L1, 1},
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

/// The include path that each library hands on to those who link it, as the build knows it:
/// "library=dir;dir;...". Whoever links Qt Gui or Qt Widgets, directly or through another library, has their
/// folders there.
QHash<QString, QStringList> includePaths()
{
    QFile file(QStringLiteral(OBELMARK_INCLUDE_PATHS));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QHash<QString, QStringList> paths;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        paths.insert(line.section(u'=', 0, 0), line.section(u'=', 1).split(u';'));
    return paths;
}

/// Names of headers or of folders of headers that belong to Qt's libraries with windows; the pages of a
/// report need fonts, but no windows.
const QString withFonts = u"(^|/)Qt(Widgets|PrintSupport|Help)(/|$)"_s;
const QString withoutFonts = u"(^|/)Qt(Gui|Widgets|PrintSupport|Help)(/|$)"_s;

bool anyIs(const QString &pattern, const QStringList &names)
{
    return !names.filter(QRegularExpression(pattern)).isEmpty();
}

} // namespace

class IncludeArrows : public QObject
{
    Q_OBJECT

private slots:
    void runDownTheFloors()
    {
        const QDir src(QStringLiteral(OBELMARK_SOURCE_DIR "/src"));
        QVERIFY2(sourceFiles(src).size() > 20, "the source tree is not where the check looks for it");
        const QStringList faults = faultsOf(src);
        QVERIFY2(faults.isEmpty(), qPrintable('\n'_L1 + faults.join('\n'_L1)));
    }

    void libraryLinksWindows_data()
    {
        QTest::addColumn<QString>("forbidden");
        QTest::addColumn<bool>("linked");
        for (const char *core : {"runtime", "desktop", "engine", "common", "store", "dates", "coins",
                                 "backup", "old_collections"})
            QTest::newRow(core) << withoutFonts << false;
        for (const char *logic : {"reports", "custom_reports", "find", "pictures/metafiles"})
            QTest::newRow(logic) << withFonts << false;
        QTest::newRow("dates/windows")
            << withFonts << true; // shows that the check sees windows where they are
    }

    void libraryLinksWindows()
    {
        QFETCH(QString, forbidden);
        QFETCH(bool, linked);
        const QString library = QString::fromLatin1(QTest::currentDataTag());

        const QStringList paths = includePaths().value(library);
        QVERIFY2(!paths.isEmpty(), "the build tells nothing of this library");
        QCOMPARE(anyIs(forbidden, paths), linked);
        if (linked)
            return;

        // Debian keeps all of Qt in one folder, so that a header named with its library is found without
        // linking it. A folder in the folder is a library of its own, with the windows.
        const QDir src(QStringLiteral(OBELMARK_SOURCE_DIR "/src"));
        for (const QString &file : sourceFiles(src)) {
            if (QFileInfo(file).path() == library)
                QVERIFY2(!anyIs(forbidden, includesOf(src.filePath(file), u'<', u'>')), qPrintable(file));
        }
    }
};

QTEST_GUILESS_MAIN(IncludeArrows)
#include "IncludeArrows.moc"
