// Gives the coin in the current folder another picture and a description that names its width, adds a coin
// with such a picture, and so on until it is killed; tells "saved" after each.
#include "common/SharedState.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include "pictures/frmImage.h"
#include "support/ScriptedDesktop.h"
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <cstdio>

using namespace obelmark;
using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QApplication application(argc, argv);
    ScriptedDesktop desktop;
    SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
    ProgramWindows windows(shared);
    frmMain window(shared, windows);
    window.Form_Load();
    const auto press = [](const QWidget &where, const QString &name) {
        where.findChild<QPushButton *>(name)->click();
    };
    press(window, u"cmdPicture"_s);
    int width = atoi(argv[1]);
    for (bool adds = false;; adds = !adds) {
        if (adds)
            press(window, u"cmdAddNew"_s);
        QImage picture(++width, 8, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QGuiApplication::clipboard()->setImage(picture);
        window.findChild<QLineEdit *>(u"txtDescr"_s)->setText(QString::number(width));
        press(windows.image(), u"cmdPicPaste"_s);
        press(window, u"cmdUpdate"_s);
        std::printf("saved %d\n", width);
    }
}
