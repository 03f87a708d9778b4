// Every topic that the program asks for has its page, and nothing in the help leads nowhere. The windows and
// the help are read as source files, so that a window is covered from the day it is written.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the group of the pattern takes from each place where it matches.
QStringList captures(const QString &text, const QString &pattern)
{
    QStringList found;
    for (auto it = QRegularExpression(pattern).globalMatch(text); it.hasNext();)
        found << it.next().captured(1);
    return found;
}

/// The pages that the sources below \a folder ask for: a number of the property helpTopic in a window, or
/// behind a name that ends so: .helpTopic = 19, ("helpTopic", 19), int firstTopic = 8.
QSet<QString> pagesAskedFor(const QString &folder)
{
    QSet<QString> pages;
    QDirIterator it(folder, {u"*.ui"_s, u"*.cpp"_s, u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QStringList topics = captures(
            contentOf(it.next()), uR"([tT]opic"?(?:_s)?(?:[^>\n]*>\s*<number>|\s*[=,({]\s*)(\d+))"_s);
        for (const QString &topic : topics)
            pages << u"topic-%1.html"_s.arg(topic);
    }
    return pages;
}

/// The values of an attribute, named with what stands before it.
QStringList values(const QString &text, const QString &attribute)
{
    return captures(text, attribute + u"=\"([^\"]*)\""_s);
}

/// What is wrong with the help whose sources lie in \a folder.
QStringList faultsOf(const QDir &folder, const QSet<QString> &askedFor)
{
    const QString project = contentOf(folder.filePath(u"coin.qhp"_s));
    const QStringList contents = values(project, u"<section [^>]*ref"_s);
    const QStringList keywords = values(project, u"<keyword [^>]*ref"_s);
    const QStringList pages = folder.entryList({u"*.html"_s});

    QStringList faults;
    const auto follow = [&](const QString &from, const QString &reference) {
        const QString page = reference.startsWith(u'#') ? from : reference.section(u'#', 0, 0);
        const QString anchor = reference.section(u'#', 1);
        const QStringList anchors = values(contentOf(folder.filePath(page)), u"<a\\s+name"_s);
        if (!pages.contains(page) || (!anchor.isEmpty() && !anchors.contains(anchor)))
            faults << from + u" leads to "_s + reference;
    };
    for (const QString &reference : contents + keywords)
        follow(u"coin.qhp"_s, reference);
    for (const QString &page : pages) {
        const QStringList links = values(contentOf(folder.filePath(page)), u"<a\\s+href"_s);
        for (const QString &link : links)
            follow(page, link);
        if (!contents.contains(page))
            faults << page + u" is not in the contents"_s;
        if (!captures(page, u"(topic-\\d)"_s).isEmpty() && !askedFor.contains(page))
            faults << page + u" is not asked for"_s;
    }
    for (const QString &page : askedFor) {
        if (!pages.contains(page))
            faults << page + u" is missing"_s;
    }
    faults.sort();
    return faults;
}

void write(const QString &path, const QString &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
}

} // namespace

class HelpTopicsTest : public QObject
{
    Q_OBJECT

private slots:
    void helpIsComplete()
    {
        const QString source = QStringLiteral(OBELMARK_SOURCE_DIR);
        const QStringList faults = faultsOf(source + u"/data/help"_s, pagesAskedFor(source + u"/src"_s));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void faultsAreSeen_data()
    {
        QTest::addColumn<QString>("project");
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("faults");
        const QString listed = u"<section title=\"One\" ref=\"topic-1.html\"/>"_s;
        const QString anchor = u"<a name=\"here\"></a>"_s;
        const QString window = u"<property name=\"helpTopic\" stdset=\"0\">\n <number>1</number>"_s;
        QTest::newRow("none") << listed + u"<keyword name=\"one\" ref=\"topic-1.html#here\"/>"_s
                              << anchor + u"<a href=\"#here\"><a href=\"topic-1.html\">"_s << window
                              << QString();
        QTest::newRow("link") << listed << u"<a href=\"topic-2.html\">"_s << window
                              << u"topic-1.html leads to topic-2.html"_s;
        QTest::newRow("anchor") << listed << anchor + u"<a href=\"#there\">"_s << window
                                << u"topic-1.html leads to #there"_s;
        QTest::newRow("keyword") << listed + u"<keyword name=\"two\" ref=\"topic-1.html#there\"/>"_s << anchor
                                 << window << u"coin.qhp leads to topic-1.html#there"_s;
        QTest::newRow("contents") << u"<section title=\"Two\" ref=\"topic-2.html\"/>"_s << anchor << window
                                  << u"coin.qhp leads to topic-2.html; topic-1.html is not in the contents"_s;
        QTest::newRow("topics in code")
            << listed << anchor << u".helpTopic = 1, {\"helpTopic\", 2}"_s << u"topic-2.html is missing"_s;
        QTest::newRow("stale page") << listed << anchor << u"constexpr int firstTopic = 12;"_s
                                    << u"topic-1.html is not asked for; topic-12.html is missing"_s;
    }

    void faultsAreSeen()
    {
        QFETCH(QString, project);
        QFETCH(QString, page);
        QFETCH(QString, source);
        QFETCH(QString, faults);
        const QTemporaryDir folder;
        write(folder.filePath(u"coin.qhp"_s), project);
        write(folder.filePath(u"topic-1.html"_s), page);
        write(folder.filePath(u"frmOne.ui"_s), source);
        QCOMPARE(faultsOf(folder.path(), pagesAskedFor(folder.path())).join(u"; "_s), faults);
    }
};

QTEST_GUILESS_MAIN(HelpTopicsTest)
#include "HelpTopics.moc"
