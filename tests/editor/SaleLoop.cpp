// Sells one coin of the lot in the current folder after the other until it is killed, and tells "sold" after
// each.
#include "common/SharedState.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include "support/ScriptedDesktop.h"
#include <QApplication>
#include <QPushButton>
#include <cstdio>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

class SellsOne : public ScriptedDesktop
{
public:
    std::optional<QString> askText(const QString &, const QString &) override { return u"1"_s; }
};

} // namespace

int main(int argc, char **argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QApplication application(argc, argv);
    SellsOne desktop;
    SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
    ProgramWindows windows(shared);
    frmMain window(shared, windows);
    window.Form_Load();
    auto *sell = window.findChild<QPushButton *>(u"cmdSoldSome"_s);
    for (;;) {
        sell->click();
        std::puts("sold");
    }
}
