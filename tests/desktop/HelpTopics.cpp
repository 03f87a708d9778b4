// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every topic that the program asks for has its page, and nothing in the help leads nowhere. The windows and
// the help are read as source files, so that a window is covered from the day it is written.
#include <QtGui>
#include <QtTest>

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

/// What is wrong with the pictures of the pages: missing or unreadable, wider than the help window shows, not
/// in the help file, shown nowhere.
QStringList pictureFaults(const QDir &folder, const QString &project)
{
    constexpr int widest = 570;
    const QStringList listed = captures(project, u"<file>([^<]*)"_s);
    QStringList faults;
    QStringList shown;
    for (const QString &page : folder.entryList({u"*.html"_s})) {
        for (const QString &picture : values(contentOf(folder.filePath(page)), u"<img\\s+src"_s)) {
            const QImage image = QImageReader(folder.filePath(picture)).read();
            if (image.isNull() || image.width() > widest)
                faults << page + u" cannot show "_s + picture;
            if (!QDir::match(listed, picture))
                faults << picture + u" is not in the help file"_s;
            shown << picture;
        }
    }
    for (const QString &file : QDir(folder.filePath(u"pictures"_s)).entryList(QDir::Files)) {
        if (!shown.contains(u"pictures/"_s + file))
            faults << file + u" is not shown"_s;
    }
    return faults;
}

/// Everything that the texts of the sources below \a folder say: literals joined where the compiler joins
/// them, a row of blanks as one, "…" in place of what is filled in.
QString saidBySources(const QString &folder)
{
    QString said;
    QDirIterator it(folder, {u"*.cpp"_s, u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        said += contentOf(it.next());
    return said.remove(QRegularExpression(u"\"\\s*\n\\s*u?\""_s))
        .replace(QRegularExpression(u"%\\d"_s), u"…"_s)
        .simplified();
}

/// The messages that the pages quote and the program does not say so.
QStringList wrongQuotes(const QDir &folder, const QString &said)
{
    QStringList faults;
    for (const QString &page : folder.entryList({u"*.html"_s})) {
        for (QString quote :
             captures(contentOf(folder.filePath(page)), u"&ldquo;([^&]*(?:&(?!rdquo)[^&]*)*)"_s)) {
            quote.replace(u"&hellip;"_s, u"…"_s).replace(u"&nbsp;"_s, u" "_s);
            for (const QString &part : quote.simplified().split(u"…"_s)) {
                if (!said.contains(part))
                    faults << page + u" quotes wrongly: "_s + part;
            }
        }
    }
    return faults;
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
    faults << pictureFaults(folder, project);
    faults.sort();
    return faults;
}

} // namespace

class HelpTopicsTest : public QObject
{
    Q_OBJECT

private slots:
    void helpIsComplete()
    {
        const QString source = QStringLiteral(OBELMARK_SOURCE_DIR);
        const QDir help(source + u"/data/help"_s);
        const QStringList faults = faultsOf(help, pagesAskedFor(source + u"/src"_s)) +
                                   wrongQuotes(help, saidBySources(source + u"/src"_s));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(HelpTopicsTest)
#include "HelpTopics.moc"
