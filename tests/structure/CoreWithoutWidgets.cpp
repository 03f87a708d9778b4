#include "structure/SourceTree.h"

#include <QHash>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace obelmark;

namespace {

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

/// Whether a header or a folder of headers belongs to one of Qt's libraries with windows.
bool isOfWindows(const QString &name)
{
    static const QRegularExpression modules(u"(^|/)Qt(Gui|Widgets|PrintSupport|Help)(/|$)"_s);
    return modules.match(name).hasMatch();
}

} // namespace

class CoreWithoutWidgets : public QObject
{
    Q_OBJECT

private slots:
    void libraryLinksWindows_data();
    void libraryLinksWindows();
};

void CoreWithoutWidgets::libraryLinksWindows_data()
{
    QTest::addColumn<bool>("windows");
    for (const char *core : {"runtime", "desktop", "engine", "common", "store"})
        QTest::newRow(core) << false;
    QTest::newRow("dates") << true; // shows that the check sees windows where they are
}

void CoreWithoutWidgets::libraryLinksWindows()
{
    QFETCH(bool, windows);
    const QString library = QString::fromLatin1(QTest::currentDataTag());

    const QStringList paths = includePaths().value(library);
    QVERIFY2(!paths.isEmpty(), "the build tells nothing of this library");
    QCOMPARE(std::any_of(paths.begin(), paths.end(), isOfWindows), windows);
    if (windows)
        return;

    // Debian keeps all of Qt in one folder, so that a header named with its library is found without linking
    // it.
    const QDir src(QStringLiteral(OBELMARK_SOURCE_DIR "/src"));
    for (const QString &file : sourceFiles(src)) {
        if (!file.startsWith(library + u'/') || file.startsWith("desktop/qt/"_L1))
            continue;
        const QStringList includes = includesOf(src.filePath(file), u'<', u'>');
        QVERIFY2(std::none_of(includes.begin(), includes.end(), isOfWindows), qPrintable(file));
    }
}

QTEST_GUILESS_MAIN(CoreWithoutWidgets)
#include "CoreWithoutWidgets.moc"
