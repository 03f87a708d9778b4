// The report designer as the main window opens it.
#include "custom_reports/windows/frmRptSpec.h"
#include "editor/EditorFixture.h"

using namespace obelmark;

class FromTheMenuTest : public QObject
{
    Q_OBJECT
private slots:
    void oneAtATime()
    {
        EditorFixture e;
        e.start();
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QCOMPARE(e.desktop.surprises().size(), 1); // there is no catalogue
        QVERIFY(e.desktop.surprises().first().contains(u"rptspec.mdb"));
        e.desktop.reset();

        QVERIFY(QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), u"rptspec.mdb"_s));
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QPointer<frmRptSpec> designer = &e.windows->designer();
        QVERIFY(gui::activate(*designer));
        gui::find<QListWidget>(*designer, u"List1"_s).setCurrentRow(0);
        QVERIFY(gui::click(gui::find<QWidget>(*designer, u"cmdAdd"_s)));
        gui::activate(*e.window);
        QVERIFY(gui::trigger(*e.window, u"mnuRptCustom"_s));
        QVERIFY(gui::activate(*designer));
        QCOMPARE(&e.windows->designer(), designer);
        QVERIFY(e.desktop.problems().isEmpty());

        // It is there until the program ends, which asks nothing.
        e.window->close();
        QVERIFY(designer && designer->isVisible());
        e.close();
        QVERIFY(!designer);
        QVERIFY(e.desktop.problems().isEmpty());
    }
};

QTEST_MAIN(FromTheMenuTest)
#include "FromTheMenu.moc"
