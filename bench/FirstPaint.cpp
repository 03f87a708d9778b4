// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "FirstPaint.h"

#include "Comparison.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace obelmark::bench {

namespace {

using Image = std::unique_ptr<XImage, decltype([](XImage *image) { XDestroyImage(image); })>;

/// The empty screen's colour, and that of a window that has not been painted yet. No widget's.
constexpr unsigned long emptyColour = 0xff00ff;

Image picture(Display *screen, int x, int y, int width, int height)
{
    return Image(XGetImage(screen, DefaultRootWindow(screen), x, y, unsigned(width), unsigned(height),
                           AllPlanes, ZPixmap));
}

pid_t launch(const std::string &program, const std::string &folder)
{
    const pid_t process = fork();
    if (process == 0) {
        if (chdir(folder.c_str()) == 0)
            execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    return process;
}

} // namespace

void ScreenCloser::operator()(_XDisplay *screen) const
{
    XCloseDisplay(screen);
}

Screen openScreen()
{
    Screen screen(XOpenDisplay(nullptr));
    if (!screen)
        throw std::runtime_error("no X display");
    const Window root = DefaultRootWindow(screen.get());
    XSelectInput(screen.get(), root, SubstructureNotifyMask);
    XSetWindowBackground(screen.get(), root, emptyColour);
    XClearWindow(screen.get(), root);
    return screen;
}

FirstPaint::FirstPaint(_XDisplay *screen, const std::string &program, const std::string &folder)
    : m_screen(screen)
{
    alarm(60); // a program that brings nothing to the screen ends the measurement
    m_milliseconds = bench::milliseconds([&] {
        m_process = launch(program, folder);
        waitForWindow();
        // Until the window gets its picture, which comes whole, the screen stays as it was.
        const int x = m_window.x + m_window.width / 2, y = m_window.y + m_window.height / 2;
        while ((XGetPixel(picture(screen, x, y, 1, 1).get(), 0, 0) & 0xffffff) == emptyColour)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
    });
    alarm(0);
}

FirstPaint::~FirstPaint()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    XEvent event{};
    while (event.type != UnmapNotify)
        XNextEvent(m_screen, &event);
    XSync(m_screen, True);
}

void FirstPaint::waitForWindow()
{
    XEvent event{};
    while (event.type != MapNotify)
        XNextEvent(m_screen, &event);
    XWindowAttributes window;
    XGetWindowAttributes(m_screen, event.xmap.window, &window);
    m_window = {window.x, window.y, window.width, window.height};
}

double FirstPaint::memory() const
{
    std::ifstream statm("/proc/" + std::to_string(m_process) + "/statm");
    double total = 0, resident = 0;
    if (!(statm >> total >> resident))
        throw std::runtime_error("the program has ended");
    return resident * double(sysconf(_SC_PAGESIZE)) / 1e6;
}

int FirstPaint::pixelsStillToChange() const
{
    const auto now = [this] {
        return picture(m_screen, m_window.x, m_window.y, m_window.width, m_window.height);
    };
    const Image first = now();
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const Image later = now();
    int changed = 0;
    for (int y = 0; y < m_window.height; ++y) {
        for (int x = 0; x < m_window.width; ++x)
            changed += XGetPixel(first.get(), x, y) != XGetPixel(later.get(), x, y);
    }
    return changed;
}

} // namespace obelmark::bench
