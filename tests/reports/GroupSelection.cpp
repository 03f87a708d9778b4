// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/ReportFixture.h"

#include "reports/windows/frmRptSel.h"
#include "support/GuiDriver.h"

using namespace obelmark;

namespace {

/// The dialog over three countries, open.
class Selection
{
public:
    Selection()
        : f(u"delete from country; insert into country (couid, coudesc) values (7, 'zinc'), (8, 'Álpha'), (9, null)"_s)
    {
        f.shared.ReportGroupMode = Lookup::Countries;
        f.shared.SelectedGroupID = 4;
        f.shared.FindCancelled = false;
        dialog = std::make_unique<frmRptSel>(f.shared, nullptr);
        gui::activate(*dialog);
    }

    QRadioButton &option(const QString &name) const { return gui::find<QRadioButton>(*dialog, name); }
    QListWidget &list() const { return gui::find<QListWidget>(*dialog, u"List1"_s); }
    void choose(const QString &name) const { QVERIFY(gui::click(gui::find<QWidget>(*dialog, name))); }
    void pick(int row) const
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row)).center());
    }

    void expectRefusal() { f.desktop.expectMessage(u"You must make a selection from the list!"_s); }

    ReportFixture f;
    std::unique_ptr<frmRptSel> dialog;
};

} // namespace

class GroupSelectionTest : public QObject
{
    Q_OBJECT
private slots:
    void all()
    {
        const Selection s;
        s.pick(1);
        QCOMPARE(s.list().selectedItems().size(), 1);
        s.choose(u"optAll"_s);
        QVERIFY(!s.list().isEnabled());
        QVERIFY(s.list().selectedItems().isEmpty());
        QVERIFY(gui::press(Qt::Key_Return));
        QVERIFY(!s.dialog->isVisible());
        QVERIFY(!s.f.shared.FindCancelled);
        QCOMPARE(s.f.shared.SelectedGroupID, -1);
    }

    void one()
    {
        Selection s;
        s.expectRefusal();
        s.choose(u"cmdOk"_s);
        s.choose(u"optAll"_s);
        s.choose(u"optSelected"_s);
        QVERIFY(s.list().isEnabled());
        s.expectRefusal();
        s.choose(u"cmdOk"_s);
        QVERIFY(s.dialog->isVisible());
        QVERIFY(s.f.shared.FindCancelled);
        QCOMPARE(s.f.shared.SelectedGroupID, 4);
        s.pick(2);
        s.choose(u"cmdOk"_s);
        QVERIFY(!s.dialog->isVisible());
        QVERIFY(!s.f.shared.FindCancelled);
        QCOMPARE(s.f.shared.SelectedGroupID, 7);
        QCOMPARE(s.f.desktop.problems(), QStringList());
    }

    void byKeyboard()
    {
        const Selection s;
        QVERIFY(s.dialog->testAttribute(Qt::WA_KeyboardFocusChange)); // else the focus is not drawn
        gui::press(Qt::Key_Tab);
        QVERIFY(!s.option(u"optAll"_s).isChecked() && !s.option(u"optSelected"_s).isChecked());
        gui::press(Qt::Key_Space);
        QVERIFY(s.option(u"optSelected"_s).isChecked());
        gui::press(Qt::Key_Tab, Qt::ShiftModifier);
        gui::press(Qt::Key_Space);
        QVERIFY(s.option(u"optAll"_s).isChecked() && !s.option(u"optSelected"_s).isChecked());
    }

    void cancelled()
    {
        for (const bool byKey : {false, true}) {
            const Selection s;
            s.pick(1);
            if (byKey)
                QVERIFY(gui::press(Qt::Key_Escape));
            else
                s.choose(u"cmdCancel"_s);
            QVERIFY(!s.dialog->isVisible());
            QVERIFY(s.f.shared.FindCancelled);
            QCOMPARE(s.f.shared.SelectedGroupID, 4);
        }
    }
};

QTEST_MAIN(GroupSelectionTest)
#include "GroupSelection.moc"
