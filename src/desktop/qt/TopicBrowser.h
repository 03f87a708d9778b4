#pragma once

#include <QTextBrowser>

namespace obelmark {

class HelpBook;

/// Shows pages of the help file and the built-in ones, and nothing else: no address leads to a file of the
/// disk or to the network.
class TopicBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit TopicBrowser(QWidget *parent = nullptr);

    /// Where the pages come from; needed before the first page is opened.
    void setBook(const HelpBook *book) { m_book = book; }
    /// Like setSource(), but reads the page again when it is already shown.
    void open(const QUrl &address);

    /// The address of the page that explains the help window.
    static QUrl usingHelpAddress();

    QVariant loadResource(int type, const QUrl &address) override;

private:
    QString builtInPage(const QUrl &address) const;

    const HelpBook *m_book = nullptr;
};

} // namespace obelmark
