// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/HelpBook.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace obelmark {

namespace {

constexpr auto bookNamespace = "obelmark.help"_L1;
constexpr auto pageFolder = "qthelp://obelmark.help/doc/"_L1;

} // namespace

HelpBook::HelpBook() : m_engine(m_folder.filePath(u"help.qhc"_s))
{
    m_engine.setReadOnly(false);
    m_problem = u"No help file was opened."_s;
}

void HelpBook::setFile(const QString &path)
{
    if (path == m_file && m_problem.isEmpty())
        return;
    m_file = path;
    m_pages.clear();
    m_problem = readFile();
}

QString HelpBook::readFile()
{
    if (!m_folder.isValid() || !m_engine.setupData())
        return u"The temporary folder that the help needs could not be made."_s;
    if (m_engine.registeredDocumentations().contains(bookNamespace))
        m_engine.unregisterDocumentation(bookNamespace);

    QString problem;
    if (!QFileInfo::exists(m_file))
        problem = u"There is no such file."_s;
    else if (QHelpEngine::namespaceName(m_file) != bookNamespace)
        problem = u"The file cannot be read, or it is not the help file of this program."_s;
    else if (!m_engine.registerDocumentation(m_file))
        problem = m_engine.error();
    m_engine.setupData(); // the contents and the index follow what is registered now
    return problem;
}

QUrl HelpBook::topicAddress(int topic)
{
    return QUrl(pageFolder + u"topic-%1.html"_s.arg(topic));
}

std::optional<int> HelpBook::topicOf(const QUrl &address)
{
    static const QRegularExpression pattern(u"^%1topic-(\\d+)\\.html$"_s.arg(pageFolder));
    const auto match = pattern.match(address.toString(QUrl::RemoveFragment));
    if (!match.hasMatch())
        return std::nullopt;
    return match.captured(1).toInt();
}

QByteArray HelpBook::data(const QUrl &address) const
{
    return m_problem.isEmpty() ? m_engine.fileData(address.adjusted(QUrl::RemoveFragment)) : QByteArray();
}

void HelpBook::loadPages()
{
    const QList<QUrl> addresses = m_engine.files(bookNamespace, QString(), u"html"_s);
    for (const QUrl &address : addresses) {
        QTextDocument document;
        document.setHtml(QString::fromUtf8(data(address)));
        m_pages.append(
            {document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText(), address});
    }
    std::ranges::sort(m_pages, [](const Page &a, const Page &b) {
        return QString::compare(a.title, b.title, Qt::CaseInsensitive) < 0;
    });
}

QList<HelpBook::Page> HelpBook::search(const QString &words)
{
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    if (wanted.isEmpty() || !m_problem.isEmpty())
        return {};
    if (m_pages.isEmpty())
        loadPages();

    const auto hasAll = [&wanted](const QString &text) {
        return std::ranges::all_of(
            wanted, [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
    };
    QList<Page> hits;
    std::ranges::copy_if(m_pages, std::back_inserter(hits),
                         [&hasAll](const Page &page) { return hasAll(page.title + u'\n' + page.text); });
    std::ranges::stable_partition(hits, [&hasAll](const Page &page) { return hasAll(page.title); });
    return hits;
}

} // namespace obelmark
