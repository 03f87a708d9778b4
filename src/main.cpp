// The composition root: makes the shared state and the main window, nothing else.
#include "common/SharedState.h"
#include "desktop/qt/RealDesktop.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Obelmark"));
    // Backup and packing close the main window for a while.
    QApplication::setQuitOnLastWindowClosed(false);

    obelmark::RealDesktop desktop;
    obelmark::SharedState shared(desktop, obelmark::RegionalSettings::system());
    obelmark::ProgramWindows windows(shared);
    obelmark::frmMain mainWindow(shared, windows);
    // Not quit(): that would ask every window whether it may close.
    QObject::connect(&mainWindow, &obelmark::frmMain::unloaded, &application, [] { QApplication::exit(); });
    mainWindow.Form_Load();
    mainWindow.show();
    return QApplication::exec();
}
