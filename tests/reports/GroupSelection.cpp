#include "reports/ReportFixture.h"

#include "reports/windows/frmRptSel.h"
#include "support/GuiDriver.h"
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

struct Mode
{
    int mode;
    const char16_t *table, *key, *description, *caption, *all, *selected;
    int topic;
};
constexpr Mode modes[] = {
    {1, u"category", u"catid", u"catdesc", u"Category Report", u"All Categories", u"Selected Categories", 35},
    {3, u"country", u"couid", u"coudesc", u"Country Report", u"All Countries", u"Selected Country", 60},
    {4, u"format", u"forid", u"fordesc", u"Format Report", u"All Formats", u"Selected Format", 63},
    {5, u"mint", u"minid", u"mindesc", u"Mint Report", u"All Mints", u"Selected Mint", 37},
    {6, u"boughtfrom", u"bouid", u"boudesc", u"Seller Report", u"All Sellers", u"Selected Seller", 53},
    {7, u"type", u"typid", u"typdesc", u"Type Report", u"All Types", u"Selected Type", 62},
};

QString text(const char16_t *of)
{
    return QString::fromUtf16(of);
}

/// The dialog of a mode over three entries, open.
class Selection
{
public:
    explicit Selection(const Mode &mode = modes[1])
        : f(u"delete from %1; insert into %1 (%2, %3) values (7, 'zinc'), (8, 'Álpha'), (9, null)"_s.arg(
              text(mode.table), text(mode.key), text(mode.description)))
    {
        f.shared.ReportGroupMode = qint16(mode.mode);
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
    void everyMode_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < int(std::size(modes)); ++row)
            QTest::addRow("%d", modes[row].mode) << row;
    }
    void everyMode()
    {
        QFETCH(int, row);
        const Mode &mode = modes[row];
        const Selection s(mode);
        QVERIFY(s.f.shared.FindCancelled);
        QCOMPARE(s.dialog->windowTitle(), text(mode.caption));
        QCOMPARE(s.option(u"optAll"_s).text(), text(mode.all));
        QCOMPARE(s.option(u"optSelected"_s).text(), text(mode.selected));
        QVERIFY(!s.option(u"optAll"_s).isChecked() && !s.option(u"optSelected"_s).isChecked());
        QStringList entries;
        for (int i = 0; i < s.list().count(); ++i)
            entries << s.list().item(i)->text() + s.list().item(i)->data(Qt::UserRole).toString();
        QCOMPARE(entries, QStringList({u"9"_s, u"Álpha8"_s, u"zinc7"_s}));
        for (const auto *name : {u"optAll", u"optSelected", u"List1", u"cmdOk", u"cmdCancel"})
            QCOMPARE(gui::find<QWidget>(*s.dialog, text(name)).property("helpTopic").toInt(), mode.topic);
        QCOMPARE(s.dialog->property("helpTopic").toInt(), mode.topic);
    }

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
        QStringList reached;
        for (int i = 0; i < 6; ++i) {
            reached << QApplication::focusWidget()->objectName();
            gui::press(Qt::Key_Tab);
        }
        QCOMPARE(reached.join(u' '), u"optAll optSelected List1 cmdOk cmdCancel optAll"_s);
        QVERIFY(!s.option(u"optAll"_s).isChecked() && !s.option(u"optSelected"_s).isChecked());
        gui::press(Qt::Key_Space);
        QVERIFY(s.option(u"optSelected"_s).isChecked());
        gui::press(Qt::Key_Tab, Qt::ShiftModifier);
        gui::press(Qt::Key_Space);
        QVERIFY(s.option(u"optAll"_s).isChecked() && !s.option(u"optSelected"_s).isChecked());
    }

    void oneWithoutOption()
    {
        const Selection s;
        s.pick(1);
        s.choose(u"cmdOk"_s);
        QCOMPARE(s.f.shared.SelectedGroupID, 8);
        QVERIFY(!s.f.shared.FindCancelled);
    }

    void cancelled_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }
    void cancelled()
    {
        QFETCH(bool, byKey);
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
};

QTEST_MAIN(GroupSelectionTest)
#include "GroupSelection.moc"
