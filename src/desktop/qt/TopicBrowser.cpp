#include "desktop/qt/TopicBrowser.h"

#include "desktop/qt/HelpBook.h"
#include "desktop/qt/HelpPages.h"

using namespace Qt::StringLiterals;

namespace obelmark {

TopicBrowser::TopicBrowser(QWidget *parent) : QTextBrowser(parent)
{
    document()->setDocumentMargin(12);
    document()->setDefaultStyleSheet(u"h1 { font-size: x-large; } h2 { font-size: large; }"_s);
}

QUrl TopicBrowser::usingHelpAddress()
{
    return QUrl(u"builtin:using-help"_s);
}

void TopicBrowser::open(const QUrl &address)
{
    if (address == source())
        reload();
    else
        setSource(address);
}

QVariant TopicBrowser::loadResource(int type, const QUrl &address)
{
    Q_ASSERT(m_book);
    if (const QByteArray page = m_book->data(address); !page.isEmpty())
        return page;
    return type == QTextDocument::HtmlResource ? QVariant(builtInPage(address)) : QVariant();
}

QString TopicBrowser::builtInPage(const QUrl &address) const
{
    if (address == usingHelpAddress())
        return HelpPages::usingHelp();
    if (!m_book->problem().isEmpty())
        return HelpPages::noHelpFile(m_book->file(), m_book->problem());
    if (const auto topic = HelpBook::topicOf(address))
        return HelpPages::noSuchTopic(*topic);
    return HelpPages::noSuchPage(address.toString());
}

} // namespace obelmark
