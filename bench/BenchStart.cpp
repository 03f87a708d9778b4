// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_start: from the start of the process to its first coin on the screen, against a program that shows
// one empty window.
#include "Collections.h"
#include "Comparison.h"
#include "FirstPaint.h"
#include <QFileInfo>
#include <stdexcept>

namespace {

using namespace obelmark::bench;

const std::string program = OBELMARK_PROGRAM;
const std::string bareWindow = OBELMARK_BARE_WINDOW;

std::string folderOf(qint64 coins)
{
    return QFileInfo(collection(coins)).path().toStdString();
}

Sides prepareStart(qint64 coins)
{
    const auto screen = std::make_shared<Screen>(openScreen());
    const std::string folder = folderOf(coins);
    if (FirstPaint(screen->get(), program, folder).pixelsStillToChange() > 0)
        throw std::runtime_error("the first picture is not yet the one with the coin");
    return {.ours = [=] { return FirstPaint(screen->get(), program, folder).milliseconds(); },
            .other = [=] { return FirstPaint(screen->get(), bareWindow, folder).milliseconds(); }};
}

Sides prepareMemory()
{
    const auto screen = std::make_shared<Screen>(openScreen());
    const auto memory = [=](qint64 coins) {
        return [=, folder = folderOf(coins)] { return FirstPaint(screen->get(), program, folder).memory(); };
    };
    return {.ours = memory(million), .other = memory(thousand)};
}

} // namespace

int main(int argc, char *argv[])
{
    for (const qint64 coins : {thousand, million})
        registerComparison({.name = "start to first coin on screen, " + sizeName(coins),
                            .prepare = [coins] { return prepareStart(coins); },
                            .pairs = 20,
                            .target = {.more = 60},
                            .against = "bare window"});
    registerComparison({.name = "memory with first coin on screen, 1 million",
                        .prepare = prepareMemory,
                        .pairs = 5,
                        .target = {.more = 20},
                        .against = "1 thousand",
                        .unit = "MB"});
    return runComparisons(argc, argv);
}
