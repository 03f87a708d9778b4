// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/HelpWindow.h"
#include "desktop/qt/TopicBrowser.h"
#include "support/Cases.h"
#include "support/GuiDriver.h"

#include <QHelpContentWidget>
#include <QHelpIndexWidget>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

const QString helpFile = QStringLiteral(HELP_FILE);

QUrl pageOf(int topic)
{
    return HelpBook::topicAddress(topic);
}

} // namespace

class HelpWindowTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HelpWindow> m_window;

    TopicBrowser &browser() const { return gui::find<TopicBrowser>(*m_window, u"txtTopic"_s); }
    QString text() const { return browser().toPlainText(); }

private slots:
    void init()
    {
        m_window = std::make_unique<HelpWindow>();
        m_window->setHelpFile(helpFile);
    }

    void topic_data() { cases::add(); }
    void topic()
    {
        const auto [number, title, phrase] = cases::row<3>();
        m_window->showTopic(number.toInt());
        QVERIFY(gui::activate(*m_window));
        QCOMPARE(browser().documentTitle(), title);
        QVERIFY2(text().contains(phrase, Qt::CaseInsensitive), qPrintable(text()));
        QVERIFY(browser().hasFocus());
    }

    void contents()
    {
        m_window->showContents();
        QVERIFY(gui::activate(*m_window));
        auto &tree = gui::find<QHelpContentWidget>(*m_window, u"treContents"_s);
        QVERIFY(gui::waitUntil([&] { return tree.model()->rowCount() > 0; }, "the contents are listed"));
        QVERIFY(tree.hasFocus());
        QCOMPARE(tree.currentIndex().data().toString(), u"The Main Window"_s);

        // Keys walk the tree, Enter opens, and the tree follows the page.
        QVERIFY(gui::press(Qt::Key_Down));
        QVERIFY(gui::press(Qt::Key_Down));
        const QString chosen = tree.currentIndex().data().toString();
        QVERIFY(gui::press(Qt::Key_Return));
        QCOMPARE(browser().documentTitle(), chosen);
        m_window->showTopic(17);
        QCOMPARE(tree.currentIndex().data().toString(), u"The Sort Menu"_s);
    }

    void search_data() { cases::add(); }
    void search()
    {
        const auto [name, words, firstHit, notAmong] = cases::row<4>();
        m_window->showSearch();
        QVERIFY(gui::activate(*m_window));
        QVERIFY(gui::find<QLineEdit>(*m_window, u"txtSearch"_s).hasFocus());
        QVERIFY(gui::type(words));

        auto &hits = gui::find<QListWidget>(*m_window, u"lstHits"_s);
        if (firstHit.isEmpty()) {
            QCOMPARE(hits.count(), 0);
            QVERIFY(gui::find<QLabel>(*m_window, u"lblHits"_s).text().startsWith(u"No page"_s));
            return;
        }
        QVERIFY(hits.count() > 0);
        QCOMPARE(hits.item(0)->text(), firstHit);
        QVERIFY(hits.findItems(notAmong, Qt::MatchExactly).isEmpty());
        QVERIFY(gui::press(Qt::Key_Return));
        QCOMPARE(browser().documentTitle(), firstHit);
    }

    void index()
    {
        m_window->showContents();
        QVERIFY(gui::activate(*m_window));
        auto &tabs = gui::find<QTabWidget>(*m_window, u"tabFinders"_s);
        auto &list = gui::find<QHelpIndexWidget>(*m_window, u"lstIndex"_s);
        QVERIFY(gui::waitUntil([&] { return list.model()->rowCount() > 0; }, "the catchwords are listed"));
        tabs.setCurrentIndex(1);
        QVERIFY(gui::focusByMouse(gui::find<QLineEdit>(*m_window, u"txtIndex"_s)));
        QVERIFY(gui::type(u"will"_s));
        QVERIFY(gui::press(Qt::Key_Return));
        QCOMPARE(browser().source(), pageOf(43));
    }

    void backAndForward()
    {
        m_window->showTopic(8);
        m_window->showTopic(777);
        m_window->showHelpOnHelp();
        QVERIFY(gui::activate(*m_window));
        QVERIFY(gui::press(Qt::Key_Left, Qt::AltModifier));
        QCOMPARE(browser().documentTitle(), u"Topic 777"_s);
        QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdBack"_s)));
        QCOMPARE(browser().source(), pageOf(8));
        QVERIFY(!gui::find<QPushButton>(*m_window, u"cmdBack"_s).isEnabled());
        QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdForward"_s)));
        QCOMPARE(browser().documentTitle(), u"Topic 777"_s);
        QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdContents"_s)));
        QCOMPARE(browser().source(), pageOf(8));
    }

    /// The browser names the file; once the file is there, the same window shows it.
    void unreadableFile()
    {
        QFile help(helpFile);
        QVERIFY(help.open(QIODevice::ReadOnly));
        for (const std::optional<QByteArray> &content :
             {std::optional<QByteArray>(), {QByteArray()}, {QByteArray(5000, 'x')}, {help.read(3000)}}) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(u"<i>coin & <b>co.hlp"_s);
            if (content) {
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write(*content) == content->size());
            }

            m_window->setHelpFile(path);
            m_window->showTopic(8);
            m_window->showSearch();
            QVERIFY(gui::activate(*m_window));
            QVERIFY2(text().contains(path), qPrintable(text()));
            QVERIFY(gui::type(u"coin"_s));
            QCOMPARE(gui::find<QListWidget>(*m_window, u"lstHits"_s).count(), 0);
            m_window->showHelpOnHelp();
            QCOMPARE(browser().documentTitle(), u"Using Help"_s);

            QFile::remove(path);
            QVERIFY(QFile::copy(helpFile, path));
            m_window->setHelpFile(path);
            m_window->showTopic(8);
            QCOMPARE(browser().documentTitle(), u"The Main Window"_s);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        }
    }

    /// A page cannot lead out of the help file.
    void opensNothingElse()
    {
        m_window->showTopic(8);
        QVERIFY(gui::activate(*m_window));
        browser().setSource(QUrl::fromLocalFile(QStringLiteral(__FILE__)));
        QVERIFY2(text().contains(u"has no page"_s), qPrintable(text()));
    }

    void escapeCloses()
    {
        m_window->showSearch();
        QVERIFY(gui::activate(*m_window));
        QVERIFY(gui::press(Qt::Key_Escape));
        QVERIFY(gui::waitUntil([&] { return !m_window->isVisible(); }, "Escape closes the window"));
        m_window->showTopic(17);
        QVERIFY(gui::activate(*m_window));
        QCOMPARE(browser().source(), pageOf(17));
    }

    /// Help asked for in a dialog is not blocked by it, and outlives it.
    void usableBesideDialog()
    {
        for (const bool shownBefore : {false, true}) {
            if (shownBefore)
                m_window->showContents();
            {
                QDialog dialog;
                const QPushButton button(&dialog);
                QVERIFY(gui::withDialog([&] { dialog.exec(); },
                                        [&](QWidget &) {
                                            m_window->showTopic(8);
                                            QVERIFY(gui::activate(*m_window));
                                            m_window->showTopic(17);
                                            QVERIFY(
                                                gui::click(gui::find<QPushButton>(*m_window, u"cmdBack"_s)));
                                            QCOMPARE(browser().source(), pageOf(8));
                                        }));
            }
            QVERIFY(m_window->isVisible());
            m_window->showTopic(17);
            QVERIFY(gui::activate(*m_window));
            QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdBack"_s)));
            QCOMPARE(browser().source(), pageOf(8));
        }
    }

    void picturesFitThePage()
    {
        m_window->resize(1100, 600);
        m_window->showTopic(8);
        QVERIFY(gui::activate(*m_window));
        const double wide = browser().document()->size().height();
        browser().scrollToAnchor(u"deleting"_s);
        const auto lineAtTop = [this] { return browser().cursorForPosition(QPoint()).block().text(); };
        const QString atTop = lineAtTop();
        QVERIFY(!atTop.isEmpty());

        for (const int width : {700, 550, 1100}) {
            m_window->resize(width, 600);
            QTRY_COMPARE(m_window->width(), width);
            QCOMPARE(browser().horizontalScrollBar()->maximum(), 0);
            QCOMPARE(lineAtTop(), atTop);
        }
        QCOMPARE(browser().document()->size().height(), wide); // the pictures are in their own size again
    }
};

QTEST_MAIN(HelpWindowTest)
#include "HelpWindow.moc"
