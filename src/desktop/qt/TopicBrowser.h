// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextBrowser>

namespace obelmark {

class HelpBook;

/// Shows pages of the help file and the built-in ones, and nothing else: no address leads to a file of the
/// disk or to the network. Pictures that are wider than the page are made smaller.
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

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QString builtInPage(const QUrl &address) const;
    /// What a line of text has, in pixels.
    int lineWidth() const;

    const HelpBook *m_book = nullptr;
    int m_fittedTo = 0; ///< the line width for which the page's pictures were read; 0 when it has none
    bool m_isFitting = false;
};

} // namespace obelmark
