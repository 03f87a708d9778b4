// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/TopicBrowser.h"

#include "desktop/qt/HelpBook.h"
#include "desktop/qt/HelpPages.h"

#include <QImage>
#include <QScopedValueRollback>
#include <QScrollBar>

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
    const QByteArray content = m_book->data(address);
    if (type == QTextDocument::ImageResource) {
        m_fittedTo = lineWidth();
        QImage picture = QImage::fromData(content).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (picture.width() > m_fittedTo) {
            picture =
                picture.scaledToWidth(qRound(m_fittedTo * devicePixelRatioF()), Qt::SmoothTransformation);
            picture.setDevicePixelRatio(devicePixelRatioF());
        }
        return picture;
    }
    if (type == QTextDocument::HtmlResource)
        m_fittedTo = 0;
    if (!content.isEmpty())
        return content;
    return type == QTextDocument::HtmlResource ? QVariant(builtInPage(address)) : QVariant();
}

int TopicBrowser::lineWidth() const
{
    // Whether there is a scroll bar yet or not: it comes with the pictures.
    const int scrollBar = verticalScrollBar()->sizeHint().width();
    return qMax(1, contentsRect().width() - scrollBar - 2 * int(document()->documentMargin()));
}

void TopicBrowser::resizeEvent(QResizeEvent *event)
{
    // The other scroll bar may come and go while the page is laid out, which is a resizing within this one.
    if (m_isFitting)
        return QTextBrowser::resizeEvent(event);
    const QScopedValueRollback fitting(m_isFitting, true);
    const int top = cursorForPosition(QPoint()).position();
    QTextBrowser::resizeEvent(event);
    if (m_fittedTo == 0 || m_fittedTo == lineWidth())
        return;
    reload();
    document()->size(); // lays out the whole page, so that there is room to scroll
    QTextCursor line(document());
    line.setPosition(top);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(line).top());
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
