// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Stage.h"

#include "pictures/PictureFiles.h"
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

const QString dataFolder = QStringLiteral(OBELMARK_DATA_DIR "/");

void copyHere(const QString &file, const QString &name)
{
    QFile::remove(name);
    if (!QFile::copy(dataFolder + file, name))
        qFatal("%s could not be copied", qPrintable(file));
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
}

/// The program folder: the sample collection, with its pictures.
void furnish(const TestCollection &collection)
{
    copyHere(u"sample.mdb"_s, u"coin.mdb"_s);
    copyHere(u"rptspec.mdb"_s, u"rptspec.mdb"_s);
    copyHere(u"coin.hlp"_s, u"coin.hlp"_s);
    QDir().mkpath(imagesFolder(collection.folder()));
    const QString images = u"sample/images/"_s;
    for (const QString &file : QDir(dataFolder + images).entryList(QDir::Files))
        copyHere(images + file, imagesFolder(collection.folder()) + file);
}

} // namespace

QList<Drive> StageDesktop::drives()
{
    return {{u"BACKUPS"_s, u"/media/ada/BACKUPS"_s, 14'900'000'000, true},
            {u"Home"_s, u"/home"_s, 182'000'000'000, false}};
}

void StageDesktop::endProgram()
{
    qFatal("the program has ended by itself");
}

Stage::Stage()
    : m_shared(m_desktop, RegionalSettings(QLocale(u"en_US"_s))), m_windows(m_shared),
      m_program(m_shared, m_windows)
{
    furnish(m_collection);
    m_program.showMainWindow();
    main().resize(widest, main().minimumSizeHint().height());
    gui::activate(main());
}

Stage::~Stage()
{
    // The windows of the lists belong to nobody. The end of one may be that of another.
    QList<QPointer<QWidget>> windows;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->testAttribute(Qt::WA_DeleteOnClose))
            windows << window;
    }
    for (const QPointer<QWidget> &window : windows)
        delete window;
}

QWidget &Stage::window(const QString &name) const
{
    QWidget *found = nullptr;
    gui::waitUntil(
        [&] {
            for (QWidget *window : QApplication::topLevelWidgets()) {
                if (window->objectName() == name && window->isVisible())
                    found = window;
            }
            return found != nullptr;
        },
        qPrintable(name + u" is open"_s));
    gui::activate(*found);
    return *found;
}

QWidget &Stage::widget(const QWidget &window, const QString &name) const
{
    return gui::find<QWidget>(window, name);
}

void Stage::press(const QWidget &window, const QString &button) const
{
    auto &pressed = gui::find<QAbstractButton>(window, button);
    // On its picture: beside the text of a check box is nothing.
    QTest::mouseClick(&pressed, Qt::LeftButton, {}, QPoint(10, pressed.height() / 2));
    QTest::qWait(1);
}

void Stage::type(const QWidget &window, const QString &field, const QString &text) const
{
    gui::focusByMouse(widget(window, field));
    gui::press(Qt::Key_A, Qt::ControlModifier);
    gui::type(text);
}

void Stage::choose(const QWidget &window, const QString &list, const QString &entry) const
{
    if (auto *combo = window.findChild<QComboBox *>(list)) {
        combo->setCurrentIndex(combo->findText(entry));
        return;
    }
    auto &entries = gui::find<QListWidget>(window, list);
    const QList<QListWidgetItem *> items = entries.findItems(entry, Qt::MatchExactly);
    if (items.isEmpty())
        qFatal("there is no %s", qPrintable(entry));
    entries.scrollToItem(items.first());
    QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, entries.visualItemRect(items.first()).center());
}

void Stage::turnTo(const QWidget &window, int page) const
{
    gui::find<QTabWidget>(window, u"Tab1"_s).setCurrentIndex(page);
}

void Stage::trigger(const QString &item) const
{
    gui::trigger(main(), item);
    QTest::qWait(1);
}

void Stage::showCoin(const QString &text) const
{
    gui::withDialog([&] { press(u"cmdFind"_s); },
                    [&](QWidget &dialog) {
                        choose(dialog, u"lstField"_s, u"Description"_s);
                        type(dialog, u"txtToFind"_s, text);
                        press(dialog, u"cmdFind"_s);
                    });
    gui::activate(main());
    const auto &position = gui::find<QLabel>(main(), u"lblPosition"_s);
    gui::waitUntil([&] { return !position.text().isEmpty(); }, "the place of the coin is shown");
    widget(main(), u"txtDescr"_s).setFocus();
}

} // namespace obelmark
