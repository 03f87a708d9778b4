#include "desktop/qt/HelpWindow.h"
#include "desktop/qt/TopicBrowser.h"
#include "support/GuiDriver.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>

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

    void topic_data()
    {
        QTest::addColumn<int>("topic");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("phrase");
        QTest::newRow("first") << 8 << u"The Main Window"_s << u"press add new"_s;
        QTest::newRow("field") << 22 << u"Catalog Number"_s << u"up to 30 characters"_s;
        QTest::newRow("menu") << 58 << u"The File Menu"_s << u"pack database"_s;
        QTest::newRow("no text") << 777 << u"Topic 777"_s << u"no text on this topic in the help file yet"_s;
    }

    void topic()
    {
        QFETCH(int, topic);
        QFETCH(QString, title);
        QFETCH(QString, phrase);
        m_window->showTopic(topic);
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

    void search_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("firstHit");
        QTest::addColumn<QString>("notAmong");
        QTest::newRow("word of a title before those of texts") << u"QUANTITY"_s << u"Quantity"_s << u"Mint"_s;
        QTest::newRow("all words, parts of words")
            << u"hyph  catalog year"_s << u"The Sort Menu"_s << u"Catalog Number"_s;
        QTest::newRow("no page") << u"zyxw"_s << QString() << QString();
    }

    void search()
    {
        QFETCH(QString, words);
        QFETCH(QString, firstHit);
        QFETCH(QString, notAmong);
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

    void unreadableFile_data()
    {
        QTest::addColumn<std::optional<QByteArray>>("content");
        QTest::newRow("missing") << std::optional<QByteArray>();
        QTest::newRow("empty") << std::optional<QByteArray>(QByteArray());
        QTest::newRow("garbage") << std::optional<QByteArray>(QByteArray(5000, 'x'));
        QFile help(helpFile);
        QVERIFY(help.open(QIODevice::ReadOnly));
        QTest::newRow("cut off") << std::optional<QByteArray>(help.read(3000));
    }

    /// The browser names the file; once the file is there, the same window shows it.
    void unreadableFile()
    {
        QFETCH(std::optional<QByteArray>, content);
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

    void everythingIsReachedWithTab()
    {
        m_window->showContents();
        QVERIFY(gui::activate(*m_window));
        QVERIFY(gui::focusByTab(browser()));
        QVERIFY(gui::focusByTab(gui::find<QPushButton>(*m_window, u"cmdContents"_s)));
        QVERIFY(gui::focusByTab(gui::find<QHelpContentWidget>(*m_window, u"treContents"_s)));
        QVERIFY(gui::press(Qt::Key_S, Qt::AltModifier));
        QVERIFY(gui::focusByTab(gui::find<QLineEdit>(*m_window, u"txtSearch"_s)));
        QVERIFY(gui::press(Qt::Key_Tab));
        QVERIFY(gui::find<QListWidget>(*m_window, u"lstHits"_s).hasFocus());
    }

    void usableBesideDialog_data()
    {
        QTest::addColumn<bool>("shownBefore");
        QTest::newRow("help opened in the dialog") << false;
        QTest::newRow("help already open") << true;
    }

    /// Help asked for in a dialog is not blocked by it, and outlives it.
    void usableBesideDialog()
    {
        QFETCH(bool, shownBefore);
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
                                        QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdBack"_s)));
                                        QCOMPARE(browser().source(), pageOf(8));
                                    }));
        }
        QVERIFY(m_window->isVisible());
        m_window->showTopic(17);
        QVERIFY(gui::activate(*m_window));
        QVERIFY(gui::click(gui::find<QPushButton>(*m_window, u"cmdBack"_s)));
        QCOMPARE(browser().source(), pageOf(8));
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
