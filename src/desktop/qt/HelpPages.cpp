// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/HelpPages.h"

using namespace Qt::StringLiterals;

namespace obelmark::HelpPages {

namespace {

QString page(const QString &title, const QString &body)
{
    return u"<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>"_s.arg(
        title.toHtmlEscaped(), body);
}

} // namespace

QString usingHelp()
{
    return page(u"Using Help"_s, uR"(
<p>The page that you are reading stands on the right. On the left are three ways to find another one:</p>
<ul>
<li><b>Contents</b> (Alt+O) lists all pages, in chapters. Click a page to read it, or choose it with the arrow keys and
press <b>Enter</b>.</li>
<li><b>Index</b> (Alt+I) lists catchwords. Type the beginning of one to shorten the list.</li>
<li><b>Search</b> (Alt+S) finds the pages that contain all the words that you type. Parts of words will do, and small
and capital letters are the same. Press <b>Enter</b> to go to the list of the pages found.</li>
</ul>
<p>The buttons at the top:</p>
<ul>
<li><b>Back</b> (Alt+B or Alt+Left) returns to the page that you read before.</li>
<li><b>Forward</b> (Alt+F or Alt+Right) undoes <b>Back</b>.</li>
<li><b>Contents</b> (Alt+C) shows the first page and the list of all pages.</li>
</ul>
<p>Click an underlined word to follow it to another page, or go to it with <b>Tab</b> and press <b>Enter</b>. To make
the text larger or smaller, hold <b>Ctrl</b> and turn the mouse wheel over it. <b>Escape</b> closes the help
window.</p>
<p>In the windows of the program, press <b>F1</b> to read about the field, button or menu item that you are at. In the
help window <b>F1</b> shows this page.</p>
)"_s);
}

QString noSuchTopic(int topic)
{
    return page(u"Topic %1"_s.arg(topic), u"<p>There is no text on this topic in the help file yet.</p>"_s);
}

QString noSuchPage(const QString &address)
{
    return page(u"Page Not Found"_s,
                u"<p>The help file has no page <b>%1</b>.</p>"_s.arg(address.toHtmlEscaped()));
}

QString noHelpFile(const QString &path, const QString &problem)
{
    return page(u"No Help File"_s, u"<p>The help file <b>%1</b> could not be opened.</p><p>%2</p>"_s.arg(
                                       path.toHtmlEscaped(), problem.toHtmlEscaped()));
}

} // namespace obelmark::HelpPages
