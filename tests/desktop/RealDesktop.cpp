// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/RealDesktop.h"
#include "desktop/qt/DropDownStyle.h"
#include "support/GuiDriver.h"

#include <cstdio>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

constexpr auto endProgramArgument = "end-program"_L1;

/// What a title or a text may contain when it holds data of the user.
const QString markup = u"<b>5 & 10</b> &amp; <img src='x'><br>&Cents\nsecond line"_s;

} // namespace

class RealDesktopTest : public QObject
{
    Q_OBJECT

private:
    RealDesktop m_desktop;
    QWidget m_window;
    QLineEdit m_field{&m_window};

private slots:
    void init() { QVERIFY(gui::activate(m_window)); }

    void message()
    {
        for (const auto &[icon, shown] : {std::pair(Desktop::Icon::None, QMessageBox::NoIcon),
                                          {Desktop::Icon::Exclamation, QMessageBox::Warning},
                                          {Desktop::Icon::Critical, QMessageBox::Critical}}) {
            QVERIFY(gui::withDialog([&] { m_desktop.showMessage(markup, u"File Exists"_s, icon); },
                                    [&](QWidget &dialog) {
                                        auto *box = qobject_cast<QMessageBox *>(&dialog);
                                        QCOMPARE(box->windowTitle(), u"File Exists"_s);
                                        QCOMPARE(box->icon(), shown);
                                        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                                        QCOMPARE(box->parentWidget(), &m_window);
                                        auto &label = gui::find<QLabel>(dialog, u"qt_msgbox_label"_s);
                                        QCOMPARE(label.text(), markup);
                                        QCOMPARE(label.textFormat(), Qt::PlainText);
                                        QVERIFY(gui::press(Qt::Key_Escape));
                                        QVERIFY(!box->isVisible());
                                    }));
        }
    }

    void typingIntoDropDownList()
    {
        for (const bool open : {false, true}) {
            DropDownStyle style;
            QComboBox list(&m_window);
            list.setStyle(&style);
            list.addItems({u"Uganda"_s, u"United Arab Emirates"_s, u"United States"_s, u"Vatican"_s});
            list.show();
            list.setFocus();
            if (open) // by a blank that follows nothing
                QTest::keyClick(&list, Qt::Key_Space);
            QCOMPARE(list.view()->isVisible(), open);
            QWidget *typedInto = open ? static_cast<QWidget *>(list.view()) : &list;
            QTest::keyClicks(typedInto, u"united s"_s);
            QCOMPARE(list.view()->isVisible(), open);
            QTest::keyClick(typedInto, Qt::Key_Return);
            QCOMPARE(list.currentText(), u"United States"_s);
            m_field.setFocus();
        }
    }

    /// Nothing is cut off at the edge of the box or of the screen, and the whole text can be read.
    void longText()
    {
        for (const QString &text : {u"Could not find file '"_s + QString(400, u'W') + u"'."_s,
                                    u"3075  Syntax error in query expression "_s.repeated(100)}) {
            QVERIFY(gui::withDialog([&] { m_desktop.showMessage(text); },
                                    [&](QWidget &dialog) {
                                        QVERIFY(
                                            dialog.screen()->availableGeometry().contains(dialog.geometry()));
                                        auto &label = gui::find<QLabel>(dialog, u"qt_msgbox_label"_s);
                                        const QRect needed = label.fontMetrics().boundingRect(
                                            label.contentsRect(), Qt::TextWordWrap, label.text());
                                        QVERIFY(needed.width() <= label.width());
                                        QVERIFY(needed.height() <= label.height());
                                        auto *box = qobject_cast<QMessageBox *>(&dialog);
                                        const QString shown = label.text().remove(u'\u200B');
                                        QVERIFY(shown == text || box->detailedText() == text);
                                        QVERIFY(gui::press(Qt::Key_Return));
                                        QVERIFY(!box->isVisible());
                                    }));
            QVERIFY(gui::withDialog([&] { m_desktop.askText(text, u"Sold Some"_s); },
                                    [](QWidget &dialog) {
                                        QVERIFY(dialog.width() <=
                                                dialog.screen()->availableGeometry().width());
                                    }));
        }
    }

    void yesNo()
    {
        for (const auto &[key, expected] : {std::pair(QKeySequence(Qt::Key_Return), Desktop::Answer::Yes),
                                            {Qt::Key_Escape, Desktop::Answer::No},
                                            {Qt::ALT | Qt::Key_N, Desktop::Answer::No}}) {
            auto given = expected == Desktop::Answer::Yes ? Desktop::Answer::No : Desktop::Answer::Yes;
            QVERIFY(gui::withDialog([&] { given = m_desktop.askYesNo(markup, u"Delete Coin"_s); },
                                    [&](QWidget &dialog) {
                                        auto *box = qobject_cast<QMessageBox *>(&dialog);
                                        QCOMPARE(box->windowTitle(), u"Delete Coin"_s);
                                        QCOMPARE(box->icon(), QMessageBox::NoIcon);
                                        QCOMPARE(box->text(), markup);
                                        QCOMPARE(box->textFormat(), Qt::PlainText);
                                        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
                                        QVERIFY(gui::press(key[0].key(), key[0].keyboardModifiers()));
                                        QVERIFY(gui::waitUntil([&] { return !box->isVisible(); },
                                                               "the key answers"));
                                    }));
            QCOMPARE(given, expected);
        }
    }

    void inputBox()
    {
        for (const auto &[typed, key, value] :
             {std::tuple(u"12 <b>"_s, Qt::Key_Return, std::optional(u"12 <b>"_s)),
              {QString(), Qt::Key_Return, QString()},
              {u"12"_s, Qt::Key_Escape, {}}}) {
            std::optional<QString> given = u"nothing yet"_s;
            QVERIFY(gui::withDialog([&] { given = m_desktop.askText(markup, u"Sold Some"_s); },
                                    [&](QWidget &dialog) {
                                        QVERIFY(qobject_cast<QInputDialog *>(&dialog));
                                        QCOMPARE(dialog.windowTitle(), u"Sold Some"_s);
                                        QVERIFY(qobject_cast<QLineEdit *>(dialog.focusWidget()));
                                        comparePrompt(dialog);
                                        QVERIFY(gui::type(typed));
                                        QVERIFY(gui::press(key));
                                    }));
            QCOMPARE(given, value);
        }
    }

    void fileDialogs()
    {
        for (const auto &[save, typed] : {std::pair(true, u"exists.txt"_s),
                                          {true, u"plain"_s},
                                          {false, u"exists.txt"_s},
                                          {false, u"missing.rpt"_s}}) {
            const QTemporaryDir folder;
            QVERIFY(QFile(folder.filePath(u"exists.txt"_s)).open(QIODevice::WriteOnly));

            const QString filter = u"Text Files (*.txt)|*.txt|Pictures|*.bmp;*.dib|All Files (*.*)|*.*"_s;
            std::optional<QString> chosen;
            const auto ask = [&] {
                chosen = save ? m_desktop.askSaveFile(u"Value.txt"_s, filter) : m_desktop.askOpenFile(filter);
            };
            QVERIFY(gui::withDialog(ask, [&](QWidget &dialog) {
                auto *files = qobject_cast<QFileDialog *>(&dialog);
                QVERIFY(files);
                QCOMPARE(
                    files->nameFilters(),
                    (QStringList{u"Text Files (*.txt)"_s, u"Pictures (*.bmp *.dib)"_s, u"All Files (*)"_s}));
                auto &name = gui::find<QLineEdit>(dialog, u"fileNameEdit"_s);
                QCOMPARE(name.text(), save ? u"Value.txt"_s : QString());
                name.setText(folder.filePath(typed));
                QVERIFY(gui::press(Qt::Key_Return));
                QVERIFY(!files->isVisible()); // no question came in between
            }));
            QCOMPARE(chosen, std::optional(folder.filePath(typed)));

            QVERIFY(gui::withDialog(ask, [](QWidget &) { QVERIFY(gui::press(Qt::Key_Escape)); }));
            QVERIFY(!chosen.has_value());
        }
    }

    void progressCanBeCancelled()
    {
        const auto progress = m_desktop.showProgress(u"Report"_s, true);
        QVERIFY(progress->update(u"1 row"_s, 1, 0));
        QVERIFY(!QApplication::activeModalWidget()); // short work is over before anyone could read it
        QProgressDialog *box = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT((progress->update(u"2 rows"_s, 2, 0),
                                  box = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget())),
                                 10000);
        QCOMPARE(box->labelText(), u"2 rows"_s);
        QVERIFY(gui::click(gui::find<QPushButton>(*box, QString())));
        QVERIFY(!progress->update(u"3 rows"_s, 3, 0));
    }

    void progressThatCannotBeCancelled()
    {
        const auto progress = m_desktop.showProgress(u"Repair"_s, false);
        QWidget *box = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT((progress->update(u"..."_s, 0, 0), box = QApplication::activeModalWidget()),
                                 10000);
        QTest::keyClick(box, Qt::Key_Escape);
        box->close();
        QVERIFY(box->isVisible());
        QVERIFY(progress->update(u"..."_s, 0, 0));
    }

    void endProgramAsksNoWindow()
    {
        const QTemporaryDir temporary;
        const QTemporaryDir runtime; // without one Qt would make it in the temporary folder
        QProcess child;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TMPDIR"_s, temporary.path());
        environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(), {endProgramArgument});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
        QCOMPARE(child.readAllStandardOutput(), "last words");
        // The help window was open: its temporary collection is gone.
        QCOMPARE(QDir(temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }

private:
    /// The prompt looks and reads like a plain label of the same text: no markup, no access key.
    static void comparePrompt(const QWidget &dialog)
    {
        auto *label = dialog.findChild<QLabel *>();
        QLabel plain;
        plain.setTextFormat(Qt::PlainText);
        plain.setText(markup);
        plain.setFont(label->font());
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(label->sizeHint(), plain.sizeHint());
        auto *field = QAccessible::queryAccessibleInterface(dialog.findChild<QLineEdit *>());
        QCOMPARE(field->text(QAccessible::Name), markup);
    }
};

namespace {

/// Tells when it is asked to close or destroyed.
class TalkingWindow : public QWidget
{
public:
    ~TalkingWindow() override { std::fputs("destroyed ", stdout); }

protected:
    void closeEvent(QCloseEvent *) override { std::fputs("closed ", stdout); }
    void hideEvent(QHideEvent *) override { std::fputs("hidden ", stdout); }
};

/// The child process of endProgramAsksNoWindow().
int endProgram(QApplication &application)
{
    TalkingWindow window;
    RealDesktop desktop;
    QObject::connect(&application, &QApplication::aboutToQuit, [] { std::fputs("quitting ", stdout); });
    window.show();
    QTimer::singleShot(0, &window, [&desktop] {
        desktop.showHelpContents(QStringLiteral(HELP_FILE));
        std::fputs("last words", stdout); // still in the buffer when the program ends
        desktop.endProgram();
    });
    QApplication::exec();
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (application.arguments().contains(endProgramArgument))
        return endProgram(application);
    RealDesktopTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "RealDesktop.moc"
