// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The report designer, used with mouse and keyboard.
#include "common/SharedState.h"
#include "custom_reports/NoPreview.h"
#include "custom_reports/windows/frmRptSpec.h"
#include "dates/windows/DateField.h"
#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"
#include "engine/rows/Database.h"
#include "support/Cases.h"
#include "support/GuiDriver.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"

using namespace obelmark;
using Answer = Desktop::Answer;

namespace {

const QString filter = u"Report Files (*.rpt)|*.rpt"_s;
const QString saveQuestion = u"Do you wish to save the current report?"_s;
const QString saveTitle = u"Save Current Report"_s;
const QString invalidMessage = u"This does not appear to be a valid report file for this program."_s;

/// The designer with the delivered catalogue and, as number 34, a field for a time.
class Designer
{
public:
    explicit Designer(const QString &sql = u"select 1"_s)
        : shared(desktop, RegionalSettings(QLocale(u"en_US"_s)))
    {
        QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), path(u"rptspec.mdb"));
        QFile::setPermissions(path(u"rptspec.mdb"), QFile::ReadOwner | QFile::WriteOwner);
        collection.exec(
            u"attach 'rptspec.mdb' as r; insert into r.RptSpec (specid, usewith, Desc, fieldname, datatype) "
            "values (34, 'coin', 'Struck', 'struck', 5);"_s +
            sql);
        shared.AppFolder = collection.folder();
        shared.CustomUseWith = u"coin"_s;
        window = new frmRptSpec(shared, preview);
        window->show();
        gui::activate(*window);
    }
    ~Designer() { delete window; }
    Q_DISABLE_COPY_MOVE(Designer)

    QString path(QStringView name) const { return collection.folder() + name.toString(); }
    template<class Widget>
    Widget &the(QStringView name) const
    {
        return gui::find<Widget>(*window, name.toString());
    }
    QListWidget &list(QStringView name) const { return the<QListWidget>(name); }
    QStringList texts(QStringView name) const
    {
        QStringList captions;
        for (int row = 0; row < list(name).count(); ++row)
            captions << list(name).item(row)->text();
        return captions;
    }
    void select(QStringView name, const QString &caption) const
    {
        list(name).setCurrentRow(int(texts(name).indexOf(caption)));
    }
    void press(QStringView button) const
    {
        // On its picture: beside the text of a check box is nothing.
        auto &pressed = the<QAbstractButton>(button);
        QTest::mouseClick(&pressed, Qt::LeftButton, {}, QPoint(10, pressed.height() / 2));
        QTest::qWait(1);
    }
    void add(const QString &caption) const
    {
        select(u"List1", caption);
        press(u"cmdAdd");
    }
    void typeInto(QStringView name, const QString &text) const
    {
        QVERIFY(gui::focusByMouse(the<QWidget>(name)));
        gui::press(Qt::Key_A, Qt::ControlModifier);
        gui::press(Qt::Key_Delete);
        gui::type(text);
    }
    /// The lines of the report file that "Save As" writes.
    QStringList saved()
    {
        const QString file = path(u"saved.rpt");
        QFile::remove(file);
        desktop.answerSaveFile({}, filter, file);
        gui::trigger(*window, u"mnuSaveAs"_s);
        return linesOf(file);
    }
    static QStringList linesOf(const QString &file)
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? QString::fromUtf8(content.readAll()).split(u"\r\n"_s)
                                                 : QStringList();
    }
    QString option(int line, int specid) { return saved()[line - 1].section(u';', specid - 1, specid - 1); }
    /// Closes it; whether it asked for changes to be saved.
    bool asksAtClosing()
    {
        desktop.reset();
        window->close();
        return desktop.surprises().size() == 1 && desktop.surprises().first().contains(saveQuestion);
    }

    TestCollection collection;
    ScriptedDesktop desktop;
    SharedState shared;
    NoPreview preview;
    QPointer<frmRptSpec> window;
};

} // namespace

class DesignerTest : public QObject
{
    Q_OBJECT
private slots:
    void fieldsGoToAndFro()
    {
        Designer d;
        QCOMPARE(d.window->windowTitle(), u"Custom Report"_s);
        const QStringList all = d.texts(u"List1");
        QCOMPARE(all.size(), 34);
        for (const auto &[button, message] :
             {std::pair(u"cmdAdd",
                        u"You must select a field from the list of available fields to add to the report."_s),
              {u"cmdRemove", u"You must select a field to remove from the report."_s},
              {u"cmdUp", u"You must select the field to move up in the list"_s},
              {u"cmdDown", u"You must select the field to move down in the list"_s}}) {
            d.desktop.expectMessage(message);
            d.press(button);
        }
        d.add(u"Year"_s);
        d.typeInto(u"txtWidth", u"0"_s);
        d.add(u"Country"_s);
        QCOMPARE(d.list(u"List1").selectedItems().size(), 0);
        d.select(u"List1", u"Mint"_s);
        QVERIFY(gui::focusByMouse(d.list(u"List1")));
        emit d.list(u"List1").itemDoubleClicked(d.list(u"List1").currentItem());
        d.press(u"cmdUp");
        QCOMPARE(d.texts(u"List2"), QStringList({u"Year"_s, u"Mint"_s, u"Country"_s}));
        d.press(u"cmdUp");
        d.press(u"cmdUp");
        d.select(u"List2", u"Year"_s);
        QVERIFY(d.the<QCheckBox>(u"chkHide").isChecked()); // by its width of 0
        d.press(u"cmdDown");
        QCOMPARE(d.saved()[10], u"26;25;4"_s);
        d.press(u"cmdDown"); // changes nothing, and yet
        d.press(u"cmdRemove");
        QVERIFY(d.the<QWidget>(u"frame1").isVisible());
        d.select(u"List2", u"Mint"_s);
        d.press(u"cmdRemove");
        d.select(u"List2", u"Country"_s);
        d.press(u"cmdRemove");
        QVERIFY(!d.the<QWidget>(u"frame1").isVisible());
        QCOMPARE(d.texts(u"List1"), all);
        d.add(u"Year"_s);
        QCOMPARE(d.the<QLineEdit>(u"txtWidth").text(), u"0"_s);
        QCOMPARE(d.desktop.problems(), QStringList());
        QVERIFY(d.asksAtClosing());
    }

    // What is typed and left, or typed and saved by the menu.
    void details_data() { cases::add(); }
    void details()
    {
        const auto [field, control, text, number, stored, message] = cases::row<6>();
        const int line = number.toInt();
        for (const bool byMenu : {true, false}) {
            Designer d;
            d.add(field);
            const int specid = d.list(u"List2").item(0)->data(Qt::UserRole).toInt();
            d.typeInto(control, text);
            if (!message.isEmpty()) {
                d.desktop.expectMessage(message);
                if (byMenu) { // no file dialog comes
                    QVERIFY(gui::trigger(*d.window, u"mnuSaveAs"_s));
                } else { // nor does the press on the button act
                    QVERIFY(gui::click(d.the<QWidget>(u"cmdGenerate")));
                    QTest::qWait(1);
                }
                QVERIFY(d.the<QWidget>(control).hasFocus());
                QCOMPARE(d.desktop.problems(), QStringList());
                d.typeInto(control, control == u"txtWidth" ? u"0.5"_s : QString());
            } else if (!byMenu) {
                gui::press(Qt::Key_Tab);
            }
            QCOMPARE(d.option(line, specid), stored);
            // Shown again and left again, it is still the same.
            d.add(u"Errors"_s);
            d.select(u"List2", field);
            QVERIFY(gui::focusByMouse(d.the<QWidget>(control)));
            gui::press(Qt::Key_Tab);
            QCOMPARE(d.option(line, specid), stored);
            QCOMPARE(d.desktop.problems(), QStringList());
        }
    }

    void yesNoAndCheckBoxes()
    {
        Designer d;
        d.add(u"Sold"_s);
        QVERIFY(!d.the<QRadioButton>(u"optTrue").isChecked() &&
                !d.the<QRadioButton>(u"optFalse").isChecked());
        d.press(u"optTrue");
        d.add(u"For Sale"_s);
        QVERIFY(!d.the<QRadioButton>(u"optTrue").isChecked());
        d.press(u"optFalse");
        d.press(u"chkHide");
        d.add(u"Quantity"_s);
        QVERIFY(!d.the<QCheckBox>(u"chkHide").isChecked());
        for (int kind = 1; kind <= 5; ++kind)
            QCOMPARE(d.the<QGroupBox>(u"fraSel_%1"_s.arg(kind)).isVisible(), kind == 2);
        d.press(u"chkTotal");
        QCOMPARE(d.option(12, 18) + d.option(13, 18), u"10"_s);
        QCOMPARE(d.option(12, 17) + d.option(13, 17) + d.option(20, 17), u"011"_s);
        QCOMPARE(d.option(21, 6), u"1"_s);
        d.select(u"List2", u"Sold"_s);
        QVERIFY(d.the<QRadioButton>(u"optTrue").isChecked());
    }

    void calendar()
    {
        Designer d;
        d.add(u"Date Sold"_s);
        auto &field = d.the<DateField>(u"dcEndDate");
        field.setText(u"7/4/1976"_s);
        QVERIFY(gui::withDialog([&] { field.showPopup(); },
                                [&](QWidget &dialog) {
                                    QCOMPARE(dialog.windowTitle(), u"Select End Date"_s);
                                    QTest::keyClick(dialog.focusWidget(), Qt::Key_Right);
                                    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
                                }));
        QVERIFY(gui::waitUntil([&] { return !field.hasFocus(); }, "the focus has moved on"));
        QCOMPARE(field.text(), u"7/5/1976"_s);
        QCOMPARE(d.option(16, 16), u"27946"_s);
    }

    void reportOptions()
    {
        Designer d;
        auto &tabs = d.the<QTabWidget>(u"Tab1");
        tabs.setCurrentIndex(1);
        d.typeInto(u"txtTitle", u"Mine"_s);
        for (const QString &option : {u"chkDate"_s, u"optOrient_1"_s, u"optWidth_1"_s, u"optReportTo_3"_s})
            d.press(option);
        QVERIFY(!d.the<QWidget>(u"fraOrient").isVisible() && !d.the<QWidget>(u"fraFormat").isVisible());
        tabs.setCurrentIndex(2);
        d.the<QComboBox>(u"cmbSort2").setCurrentText(u"Year"_s);
        const QStringList lines = d.saved();
        QCOMPARE(lines.first(11), QStringList({u"coin"_s, u"Mine"_s, u"3"_s, u"1"_s, u"0"_s, u"0"_s, u"1"_s,
                                               u"-1 "_s, u" 33 "_s, u"0"_s, u""_s}));
        QVERIFY(!d.asksAtClosing()); // it has just been saved

        Designer again;
        QFile file(again.path(u"mine.rpt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(lines.join(u"\r\n"_s).toUtf8());
        file.close();
        again.desktop.answerOpenFile(filter, file.fileName());
        QVERIFY(gui::trigger(*again.window, u"mnuOpen"_s));
        QCOMPARE(again.saved(), lines);
        again.desktop.answerYesNo(saveQuestion, saveTitle, Answer::No);
        QVERIFY(gui::find<QRadioButton>(*again.window, u"optOrient_1"_s).isChecked());
        again.the<QRadioButton>(u"optReportTo_1").setChecked(true);
        QVERIFY(gui::trigger(*again.window, u"mnuNew"_s));
        // All as in the beginning, but for the unit.
        QStringList fresh = Designer().saved();
        fresh[6] = u"1"_s;
        QCOMPARE(again.saved(), fresh);
        QCOMPARE(again.desktop.problems(), QStringList());
    }

    // The field that the user is in is hidden when a new report begins.
    void newReportForgetsTheFieldInHand()
    {
        Designer d;
        d.add(u"Face Value"_s);
        d.typeInto(u"txtLess", u"66"_s);
        d.saved();
        QVERIFY(gui::focusByMouse(d.the<QWidget>(u"txtLess")));
        QVERIFY(gui::trigger(*d.window, u"mnuNew"_s));
        QCOMPARE(d.saved(), Designer().saved());
        // The frame that is still there belongs to no field.
        QVERIFY(gui::activate(*d.window));
        QVERIFY(gui::focusByMouse(d.the<QWidget>(u"txtWidth")));
        QVERIFY(gui::focusByMouse(d.the<QWidget>(u"List1")));
        QCOMPARE(d.desktop.problems(), QStringList());
    }

    void fileCommands()
    {
        Designer d;
        const QString file = d.path(u"my.rpt.rpt");
        d.add(u"Notes"_s);
        // Not replaced, cancelled, written; then without a question.
        QVERIFY(QFile::copy(d.path(u"rptspec.mdb"), file));
        d.desktop.answerSaveFile({}, filter, file);
        d.desktop.answerYesNo(u"The report file '%1' already exists.  Do you wish to replace it?"_s.arg(file),
                              u"File Exists"_s, Answer::No);
        QVERIFY(gui::trigger(*d.window, u"mnuSaveAs"_s));
        QVERIFY(d.shared.FindCancelled);
        QVERIFY(QFile::remove(file));
        d.desktop.answerSaveFile({}, filter, {});
        QVERIFY(gui::trigger(*d.window, u"mnuSaveAs"_s));
        QCOMPARE(d.window->windowTitle(), u"Custom Report"_s);
        d.desktop.answerSaveFile({}, filter, file);
        QVERIFY(gui::trigger(*d.window, u"mnuSave"_s));
        QCOMPARE(d.window->windowTitle(), u"Custom Report - "_s + d.path(u"my"));
        d.add(u"Year"_s);
        QVERIFY(gui::trigger(*d.window, u"mnuSave"_s));
        QCOMPARE(Designer::linesOf(file)[10], u"21;4"_s);

        // A file with a fault: what was read stays, and Save must not write over it.
        QStringList lines = Designer::linesOf(file);
        lines[13] = u"kept"_s;
        lines[14] = u"x"_s;
        QFile broken(file);
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write(lines.join(u"\r\n"_s).toUtf8());
        broken.close();
        for (const QString &refused : {file, d.path(u"missing.rpt")}) {
            d.desktop.answerOpenFile(filter, refused);
            d.desktop.expectMessage(refused == file ? invalidMessage
                                                    : u"The report file '%1' could not be read.  %2"_s.arg(
                                                          refused, u"No such file or directory"_s),
                                    refused == file ? u"Invalid Report File"_s : u"Obelmark"_s);
            QVERIFY(gui::trigger(*d.window, u"mnuOpen"_s));
            d.desktop.answerSaveFile({}, filter, {});
            QVERIFY(gui::trigger(*d.window, u"mnuSave"_s));
        }
        QCOMPARE(d.texts(u"List2"), QStringList({u"Notes"_s, u"Year"_s}));
        QCOMPARE(d.option(14, 1), u"kept"_s);
        // A file that cannot be written: the report stays unsaved, and the window open.
        d.press(u"cmdUp");
        d.desktop.answerYesNo(saveQuestion, saveTitle, Answer::Yes);
        QVERIFY(QFile::remove(d.path(u"saved.rpt")) && QDir().mkdir(d.path(u"saved.rpt")));
        const auto before = d.desktop.surprises().size();
        d.window->close();
        QVERIFY(d.window->isVisible());
        QCOMPARE(d.desktop.surprises().size(), before + 1);
        QVERIFY(d.asksAtClosing());
        QVERIFY(d.window.isNull() || !d.window->isVisible());
    }

    void generating()
    {
        Designer d(u"insert into Coin (descr, Year) values ('Alpha', 1900), ('Beta', 1800)"_s);
        gui::press(Qt::Key_Escape);
        QVERIFY(d.window->isVisible());
        d.desktop.expectMessage(u"You have not selected any fields to include in the report"_s);
        d.press(u"cmdGenerate");
        d.add(u"Year"_s);
        d.typeInto(u"txtGreater", u"1850"_s);
        // No database: the main window has gone to be packed, and it did not come back.
        d.desktop.expectMessage(u"There was an error accessing the database file.  Aborting..."_s);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, d.the<QPushButton>(u"cmdGenerate").click());
        d.shared.CoinDatabase = Database::open(d.collection.databasePath(), Database::Access::Exclusive, {});
        d.press(u"cmdGenerate");
        QCOMPARE(d.preview.shown, 1);
        QCOMPARE(d.preview.document().pageText(0).section(u'\n', 1, 1), u"Year"_s);
        d.typeInto(u"txtGreater", u"1950"_s);
        d.desktop.expectMessage(
            u"No records have been entered that may be included in the specified report"_s);
        d.the<QPushButton>(u"cmdGenerate").click(); // no focus moves
        QCOMPARE(d.preview.shown, 1);
        QCOMPARE(d.desktop.problems(), QStringList());
    }
};

QTEST_MAIN(DesignerTest)
#include "Designer.moc"
