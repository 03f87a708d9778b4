// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "pictures/PictureView.h"
#include "pictures/frmImage.h"
#include "support/FileFaults.h"

using namespace obelmark;

namespace {

const QString filter =
    u"All Picture Files|*.bmp;*.dib;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur|Bitmaps (*.bmp,*.bid)|*.bmp;*.bid|"
    "GIF Images (*.gif)|*.gif|JPEG Images (*.jpg)|*.jpg|Metafiles (*.wmf,*.emf)|*.wmf;*.emf|"
    "Icons (*.ico,*.cur)|*.ico;*.cur|All Files (*.*)|*.*"_s;

QImage plain(int width, QColor colour = Qt::red)
{
    QImage image(width, 10, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// The argument with which the program saves a coin with a picture, and is killed.
const QString savingArgument = u"save"_s;

int saveUntilKilled(const QString &key, int change)
{
    ScriptedDesktop desktop;
    SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
    ProgramWindows windows(shared);
    frmMain window(shared, windows);
    window.Form_Load();
    const auto press = [](const QWidget &where, const QString &name) {
        gui::find<QPushButton>(where, name).click();
    };
    press(window, u"cmdPicture"_s);
    if (key != u"1")
        press(window, u"cmdAddNew"_s);
    QGuiApplication::clipboard()->setImage(plain(40));
    gui::find<QLineEdit>(window, u"txtDescr"_s).setText(u"new"_s);
    press(windows.image(), u"cmdPicPaste"_s);
    killAtChange(change);
    press(window, u"cmdUpdate"_s);
    std::_Exit(EXIT_SUCCESS);
}

/// The editor on coins 1 to 3, with the picture window.
class PictureFixture : public EditorFixture
{
public:
    explicit PictureFixture(
        const QString &sql =
            u"insert into Coin (coinid, descr, quantity) values (1, 'a', 1), (2, 'b', 1), (3, 'c', 1)"_s)
        : EditorFixture(sql)
    {
        QDir(collection.folder()).mkdir(u"images"_s);
    }

    QString pathOf(const QString &name) const { return collection.folder() + u"images/"_s + name; }
    QStringList files() const { return QDir(pathOf({})).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    int widthOf(const QString &name) const { return QImage(pathOf(name)).width(); }

    void openPicture()
    {
        press(u"cmdPicture");
        QVERIFY(gui::activate(image()));
        QVERIFY(gui::activate(*window));
    }
    frmImage &image() const { return *windows->madeImage(); }
    const PictureView &view() const { return gui::find<PictureView>(image(), u"Image1"_s); }
    int shownWidth() const { return view().picture().size().width(); }
    void pressOn(const QString &button) const
    {
        QVERIFY(gui::activate(image()));
        QVERIFY(gui::click(gui::find<QPushButton>(image(), button)));
        QTest::qWait(1);
        QVERIFY(gui::activate(*window));
    }
    void paste(const QImage &picture) const
    {
        QGuiApplication::clipboard()->setImage(picture);
        pressOn(u"cmdPicPaste"_s);
    }
    QString failure(const QString &name) const
    {
        return u"Failed to save the picture to the file: '%1'"_s.arg(pathOf(name));
    }
};

} // namespace

class PicturesTest : public QObject
{
    Q_OBJECT
private slots:
    void loadedPictureIsSavedWithItsCoin()
    {
        PictureFixture e;
        const QString source = e.collection.folder() + u"scan.png"_s;
        QVERIFY(plain(30).save(source));
        QVERIFY(QFile(e.pathOf(u"00000001.gif"_s)).open(QIODevice::WriteOnly));
        e.start();
        e.openPicture();
        QCOMPARE(e.shownWidth(), 0); // what cannot be read is no picture
        e.desktop.answerOpenFile(filter, source);
        e.pressOn(u"cmdPicLoad"_s);
        QVERIFY(e.isEditing());
        QVERIFY(e.shared->PictureChanged);
        QCOMPARE(e.shownWidth(), 30);
        QVERIFY(QFile::remove(source)); // the picture is in the window now
        e.pressOn(u"cmdClose"_s);
        QVERIFY(!e.image().isVisible());
        e.press(u"cmdUpdate");
        QCOMPARE(e.files(), QStringList(u"00000001.jpg"_s));
        QCOMPARE(e.widthOf(u"00000001.jpg"_s), 30);
        QVERIFY(!e.shared->PictureChanged);
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    void pictureOfANewCoin()
    {
        PictureFixture e;
        e.start();
        e.openPicture();
        QVERIFY(plain(99).save(e.pathOf(u"00000004.jpg"_s))); // of nobody: the next coin has that key
        e.press(u"cmdAddNew");
        e.typeInto(u"txtDescr", u"d"_s);
        e.paste(plain(40));
        QVERIFY(e.isAdding());
        e.press(u"cmdAddNew");
        QCOMPARE(e.shownWidth(), 0); // the next one has none yet
        e.typeInto(u"txtDescr", u"e"_s);
        e.press(u"cmdUpdate");
        QCOMPARE(e.files(), QStringList({u"00000004.jpg"_s, u"unclaimed-00000004.jpg"_s}));
        QCOMPARE(e.widthOf(u"00000004.jpg"_s), 40);
        e.press(u"cmdPrevious");
        QCOMPARE(e.shownWidth(), 40);
        QCOMPARE(e.desktop.problems(), QStringList());
    }

    // A picture that was not saved goes to no coin, whether the window is open or not.
    void cancelledPictureIsDropped()
    {
        for (const bool open : {true, false}) {
            PictureFixture e;
            e.start();
            e.openPicture();
            e.paste(plain(30));
            if (!open)
                e.pressOn(u"cmdClose"_s);
            e.press(u"cmdCancel");
            QVERIFY(!e.shared->PictureChanged);
            e.typeInto(u"txtDescr", u"changed"_s);
            e.press(u"cmdUpdate");
            QCOMPARE(e.files(), QStringList());
        }
    }

    void pasteOfNoPicture()
    {
        PictureFixture e;
        QVERIFY(plain(30).save(e.pathOf(u"00000001.jpg"_s)));
        QFile file(e.pathOf(u"00000001.jpg"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        e.start();
        e.openPicture();
        QGuiApplication::clipboard()->setText(u"no picture"_s);
        e.pressOn(u"cmdPicPaste"_s);
        QVERIFY(e.isEditing());
        QVERIFY(e.shared->PictureChanged);
        e.press(u"cmdUpdate");
        QFile after(file.fileName());
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), before);
        e.pressOn(u"cmdPicCopy"_s);
        QCOMPARE(QGuiApplication::clipboard()->image().size(), QSize(30, 10));
        QVERIFY(e.isBrowsing());
    }

    // The Picture button shows a ".bmp" as it is; a display of its coin makes it a JPEG file.
    void oldBitmapIsConverted()
    {
        PictureFixture e;
        QVERIFY(plain(30).save(e.pathOf(u"00000002.bmp"_s)));
        QVERIFY(plain(50).save(e.pathOf(u"00000003.BMP"_s), "bmp"));
        e.start();
        e.press(u"cmdNext"); // not shown, not converted
        e.openPicture();
        QCOMPARE(e.shownWidth(), 30);
        QCOMPARE(e.files().first(), u"00000002.bmp"_s);
        e.press(u"cmdNext");
        QCOMPARE(e.shownWidth(), 50);
        e.press(u"cmdPrevious");
        QCOMPARE(e.shownWidth(), 30);
        QCOMPARE(e.files(), QStringList({u"00000002.jpg"_s, u"00000003.BMP"_s}));
        QCOMPARE(e.widthOf(u"00000002.jpg"_s), 30);
        e.press(u"cmdPrevious");
        QCOMPARE(e.shownWidth(), 0);
    }

    // At whatever step a save is cut off, its coin has the new picture or the one before, and no other
    // coin's.
    void killedWhileSaving()
    {
        for (const QString &key : {u"1"_s, u"4"_s}) { // a coin that is there, a new one
            const int before = key == u"1" ? 30 : 0;
            int change = 1;
            for (bool killed = true; killed && change < 300; ++change) {
                const PictureFixture e;
                QVERIFY(plain(30).save(e.pathOf(u"00000001.jpg"_s)) &&
                        plain(50).save(e.pathOf(u"00000002.jpg"_s)));
                killed = QProcess::execute(QCoreApplication::applicationFilePath(),
                                           {savingArgument, key, QString::number(change)}) != 0;
                QCOMPARE(e.collection.query(u"pragma integrity_check"_s), QStringList(u"ok"_s));
                const bool isSaved =
                    e.collection.query(u"select coinid from Coin where descr = 'new'"_s) == QStringList{key};
                const int width = e.widthOf(u"0000000%1.jpg"_s.arg(key));
                QVERIFY(width == before || (isSaved && width == 40));
                QVERIFY(killed || width == 40);
                QCOMPARE(e.widthOf(u"00000002.jpg"_s), 50);
                // What is cut off has a name that the next start knows.
                static const QRegularExpression known(u"^\\.obelmark-(bytes|jpeg|picture)\\.tmp$"_s);
                for (const QString &left : e.files().filter(u"obelmark"_s))
                    QVERIFY2(known.match(left).hasMatch(), qPrintable(left));
            }
            QVERIFY2(change > 10 && change < 300, qPrintable(QString::number(change)));
        }
    }

    // A folder of that name is in the way.
    void unwritablePicture()
    {
        PictureFixture e;
        QVERIFY(plain(30).save(e.pathOf(u"00000001.bmp"_s)));
        QVERIFY(QDir(e.pathOf({})).mkdir(u"00000001.jpg"_s));
        e.start();
        e.openPicture();
        e.press(u"cmdNext");
        e.desktop.expectMessage(e.failure(u"00000001.jpg"_s), u"Obelmark"_s, Icon::Exclamation);
        e.press(u"cmdFirst");
        QCOMPARE(e.shownCoin(), u"a"_s);
        QCOMPARE(e.shownWidth(), 30);
        QCOMPARE(e.files(), QStringList(u"00000001.bmp"_s));

        e.paste(plain(40));
        e.typeInto(u"txtDescr", u"a2"_s);
        for (int i = 0; i < 2; ++i) // of the save, and of the display after it
            e.desktop.expectMessage(e.failure(u"00000001.jpg"_s), u"Obelmark"_s, Icon::Exclamation);
        e.press(u"cmdUpdate");
        QCOMPARE(e.desktop.problems(), QStringList());
        QCOMPARE(e.shownCoin(), u"a2"_s);
        QCOMPARE(e.files(), QStringList(u"00000001.bmp"_s));
    }

    void refusedFile()
    {
        for (const auto &[answer, message] :
             {std::pair(std::optional<QString>(), QString()),
              {u"none.jpg"_s, u"File not found."_s},
              {u"coin.mdb"_s,
               u"The picture file 'coin.mdb' could not be read: it is no picture of a known kind."_s}}) {
            PictureFixture e;
            QVERIFY(plain(30).save(e.pathOf(u"00000001.jpg"_s)));
            e.start();
            e.openPicture();
            e.desktop.answerOpenFile(filter, answer);
            if (!message.isEmpty())
                e.desktop.expectMessage(message);
            e.pressOn(u"cmdPicLoad"_s);
            QCOMPARE(e.desktop.problems(), QStringList());
            QVERIFY(!e.shared->PictureChanged);
            QVERIFY(e.isBrowsing());
            QCOMPARE(e.shownWidth(), 30);
        }
    }

    void droppedFile()
    {
        PictureFixture e;
        e.start();
        e.openPicture();
        const QString path = e.collection.folder() + u"scan.png"_s;
        QVERIFY(plain(30).save(path));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&e.image(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&e.image(), &drop);
        QVERIFY(gui::waitUntil([&] { return e.isEditing(); }, "editing"));
        QCOMPARE(e.shownWidth(), 30);
    }

    // The last coin goes with its picture; without coins there is nothing to give one to.
    void deletedCoin()
    {
        PictureFixture e(u"insert into Coin (coinid, descr, quantity) values (5, 'a', 1)"_s);
        QVERIFY(plain(30).save(e.pathOf(u"00000005.png"_s)));
        QVERIFY(plain(30).save(e.pathOf(u"00000006.png"_s)));
        e.start();
        e.openPicture();
        QCOMPARE(e.shownWidth(), 30);
        e.desktop.answerYesNo(u"Are you sure that you want to delete this Coin record?"_s, u"Delete Coin"_s,
                              Answer::Yes);
        e.press(u"cmdDelete");
        QCOMPARE(e.files(), QStringList(u"00000006.png"_s));
        QCOMPARE(e.shownWidth(), 0);
        for (const auto *button : {u"cmdPicLoad", u"cmdPicPaste"})
            QVERIFY(!gui::find<QPushButton>(e.image(), QString::fromUtf16(button)).isEnabled());
        e.openPicture();
        e.pressOn(u"cmdPicCopy"_s);
        QVERIFY(e.isBrowsing());
        QCOMPARE(e.desktop.problems(), QStringList());
    }
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == savingArgument)
        return saveUntilKilled(arguments[2], arguments[3].toInt());
    PicturesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "Pictures.moc"
