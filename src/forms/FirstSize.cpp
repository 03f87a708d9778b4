// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/FirstSize.h"

#include <QGridLayout>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace obelmark {

namespace {

/// Height of the letters that the windows were drawn for, in pixels.
constexpr double drawnForHeight = 14;

/// About what the desktop will put around the window, which it does not tell before the window is shown.
QSize frameSize(const QWidget &window)
{
    constexpr int border = 4;
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return {2 * border, title + 2 * border};
}

QScrollArea *scrolled(QWidget *contents)
{
    auto *area = new QScrollArea;
    area->setFocusPolicy(Qt::NoFocus);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(contents);
    return area;
}

void scrollContents(QWidget &window)
{
    if (auto *main = qobject_cast<QMainWindow *>(&window)) {
        main->setCentralWidget(scrolled(main->takeCentralWidget()));
        return;
    }
    auto *contents = new QWidget;
    contents->setLayout(window.layout());
    auto *layout = new QVBoxLayout(&window);
    layout->setContentsMargins({});
    layout->addWidget(scrolled(contents));
}

/// Gives up the gaps that only part groups of fields.
void closeGaps(const QWidget &window)
{
    const auto grids = window.findChildren<QGridLayout *>();
    for (QGridLayout *grid : grids) {
        for (int row = 0; row < grid->rowCount(); ++row)
            grid->setRowMinimumHeight(row, 0);
    }
}

} // namespace

void setFirstSize(QWidget &window)
{
    const double growth = qMax(1.0, window.fontMetrics().height() / drawnForHeight);
    const QSize most = window.screen()->availableSize() - frameSize(window);
    if (window.minimumSizeHint().height() > most.height())
        closeGaps(window);
    const QSize least = window.minimumSizeHint();
    const QSize wanted = (window.size() * growth).expandedTo(least);
    if (least.width() > most.width() || least.height() > most.height())
        scrollContents(window);
    window.resize(wanted.boundedTo(most));
}

} // namespace obelmark
