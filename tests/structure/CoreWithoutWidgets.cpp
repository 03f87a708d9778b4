#include "structure/SourceTree.h"

#include <QtTest>

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

/// Names of headers or of folders of headers that belong to Qt's libraries with windows; the pages of a
/// report need fonts, but no windows.
const QString withFonts = u"(^|/)Qt(Widgets|PrintSupport|Help)(/|$)"_s;
const QString withoutFonts = u"(^|/)Qt(Gui|Widgets|PrintSupport|Help)(/|$)"_s;

bool anyIs(const QString &pattern, const QStringList &names)
{
    return !names.filter(QRegularExpression(pattern)).isEmpty();
}

} // namespace

class CoreWithoutWidgets : public QObject
{
    Q_OBJECT

private slots:
    void libraryLinksWindows_data()
    {
        QTest::addColumn<QString>("forbidden");
        QTest::addColumn<bool>("linked");
        for (const char *core :
             {"runtime", "desktop", "engine", "common", "store", "backup", "old_collections"})
            QTest::newRow(core) << withoutFonts << false;
        for (const char *logic : {"reports", "custom_reports", "find", "pictures/metafiles"})
            QTest::newRow(logic) << withFonts << false;
        QTest::newRow("dates") << withFonts << true; // shows that the check sees windows where they are
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

QTEST_GUILESS_MAIN(CoreWithoutWidgets)
#include "CoreWithoutWidgets.moc"
