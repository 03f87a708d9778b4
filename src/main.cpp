// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The composition root: makes the shared state and the windows, nothing else.
#include "common/SharedState.h"
#include "desktop/qt/DropDownStyle.h"
#include "desktop/qt/RealDesktop.h"
#include "desktop/qt/SecondStart.h"
#include "editor/Program.h"
#include "editor/ProgramWindows.h"
#include "forms/EnterOnButtons.h"
#include <QApplication>
#include <QDir>
#include <QIcon>

namespace {

/// Letters typed into a list after a longer pause begin a new text.
constexpr int slowestTypingMs = 1000;

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icon/%1").arg(size));
    return icon;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Obelmark"));
    QApplication::setDesktopFileName(QStringLiteral("obelmark"));
    QApplication::setWindowIcon(programIcon());
    QApplication::setStyle(new obelmark::DropDownStyle);
    QApplication::setKeyboardInputInterval(slowestTypingMs);
    // Backup and packing close the main window for a while.
    QApplication::setQuitOnLastWindowClosed(false);
    const obelmark::EnterOnButtons enterOnButtons;

    const QString folder = QDir::currentPath();
    obelmark::SecondStart::knock(folder);
    obelmark::RealDesktop desktop;
    obelmark::SharedState shared(desktop, obelmark::RegionalSettings::system());
    obelmark::ProgramWindows windows(shared);
    obelmark::Program program(shared, windows);
    // Not quit(): that would ask every window whether it may close.
    QObject::connect(&program, &obelmark::Program::ended, &application, [] { QApplication::exit(); });
    program.showMainWindow();
    // Not before: it has the database now.
    const obelmark::SecondStart secondStart(folder);
    QObject::connect(&secondStart, &obelmark::SecondStart::knocked, &program,
                     &obelmark::Program::comeToFront);
    return QApplication::exec();
}
