// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <sys/types.h>

struct _XDisplay; // Xlib's header has macros that Qt's cannot live with

namespace obelmark::bench {

struct ScreenCloser
{
    void operator()(_XDisplay *screen) const;
};
using Screen = std::unique_ptr<_XDisplay, ScreenCloser>;

/// The X display, which must have nothing on it. \throws std::runtime_error
Screen openScreen();

/// A program started in a folder and watched until its first window has its picture on the screen; ended with
/// the object. It is watched through the X server, from outside, so every program is measured in the same
/// way.
class FirstPaint
{
public:
    FirstPaint(_XDisplay *screen, const std::string &program, const std::string &folder);
    ~FirstPaint();
    FirstPaint(const FirstPaint &) = delete;
    FirstPaint &operator=(const FirstPaint &) = delete;

    /// From the start of the process to that moment.
    double milliseconds() const { return m_milliseconds; }
    /// Its resident memory, in MB.
    double memory() const;
    /// How many of the window's pixels have changed a second later.
    int pixelsStillToChange() const;

private:
    void waitForWindow();

    _XDisplay *m_screen;
    struct
    {
        int x, y, width, height;
    } m_window{};
    pid_t m_process;
    double m_milliseconds;
};

} // namespace obelmark::bench
