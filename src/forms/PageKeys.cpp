// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/PageKeys.h"

#include <QShortcut>
#include <QTabWidget>

namespace obelmark {

namespace {

QWidget *firstStop(QWidget &page)
{
    for (QWidget *stop = page.nextInFocusChain(); stop != &page; stop = stop->nextInFocusChain()) {
        if (page.isAncestorOf(stop) && stop->isVisible() && stop->isEnabled() &&
            (stop->focusPolicy() & Qt::TabFocus))
            return stop;
    }
    return nullptr;
}

void turnPage(QTabWidget &tabs, int step)
{
    tabs.setCurrentIndex((tabs.currentIndex() + step + tabs.count()) % tabs.count());
    QWidget *page = tabs.currentWidget();
    // From another page the tab control has brought the focus along.
    if (page->isAncestorOf(tabs.window()->focusWidget()))
        return;
    if (QWidget *stop = firstStop(*page))
        stop->setFocus(Qt::TabFocusReason);
}

} // namespace

void addPageKeys(QTabWidget &tabs)
{
    constexpr QKeyCombination forwards[] = {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown};
    constexpr QKeyCombination backwards[] = {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp};
    for (const QKeyCombination key : forwards)
        new QShortcut(key, tabs.window(), [&tabs] { turnPage(tabs, 1); });
    for (const QKeyCombination key : backwards)
        new QShortcut(key, tabs.window(), [&tabs] { turnPage(tabs, -1); });
}

} // namespace obelmark
