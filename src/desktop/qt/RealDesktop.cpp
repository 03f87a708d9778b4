// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/RealDesktop.h"

#include "desktop/qt/DriveList.h"
#include "desktop/qt/FileDialogs.h"
#include "desktop/qt/HelpWindow.h"
#include "desktop/qt/ProgressBox.h"

#include <QApplication>
#include <QDesktopServices>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScopeGuard>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace obelmark {

namespace {

constexpr qsizetype longestText = 1000;
constexpr qsizetype longestPromptLine = 80;

QMessageBox::Icon boxIcon(Desktop::Icon icon)
{
    switch (icon) {
    case Desktop::Icon::Exclamation:
        return QMessageBox::Warning;
    case Desktop::Icon::Critical:
        return QMessageBox::Critical;
    case Desktop::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The text with a place to break in every run of letters that is wider than a box may be; it would be cut
/// off.
QString breakable(QString text)
{
    static const QRegularExpression longRun(u"([^\\s/]{40})(?=[^\\s/]{40})"_s);
    return text.replace(longRun, u"\\1\u200B"_s);
}

/// Fills in the text. One that could be taller than the screen is shown in full behind the details button.
void setPlainText(QMessageBox &box, const QString &text)
{
    box.setTextFormat(Qt::PlainText);
    if (text.size() <= longestText) {
        box.setText(breakable(text));
    } else {
        box.setText(breakable(text.first(longestText)) + u'…');
        box.setDetailedText(text);
    }
}

/// Boxes that come while the hourglass is shown have an ordinary pointer.
[[nodiscard]] auto withPointer()
{
    const bool hourglass = QApplication::overrideCursor() != nullptr;
    if (hourglass)
        QApplication::restoreOverrideCursor();
    return qScopeGuard([hourglass] {
        if (hourglass)
            QApplication::setOverrideCursor(Qt::WaitCursor);
    });
}

/// What a window needs for its title and the buttons beside it.
int widthOfTitle(const QWidget &window)
{
    const QFontMetrics metrics = window.fontMetrics();
    return metrics.horizontalAdvance(window.windowTitle()) + 16 * metrics.averageCharWidth();
}

int runBox(QMessageBox::Icon icon, const QString &text, const QString &title,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton initial,
           QMessageBox::StandardButton escape, QWidget *owner)
{
    QMessageBox box(icon, title, QString(), buttons, owner);
    setPlainText(box, text);
    // A short text must not cut the title off.
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
    if (label && text.size() < title.size() * 2 &&
        box.fontMetrics().horizontalAdvance(text) < widthOfTitle(box))
        label->setMinimumWidth(widthOfTitle(box));
    box.setDefaultButton(initial);
    box.setEscapeButton(escape);
    const auto pointer = withPointer();
    return box.exec();
}

} // namespace

RealDesktop::RealDesktop()
{
    QObject::connect(qApp, &QApplication::focusChanged, &m_watcher, [this](QWidget *, const QWidget *now) {
        if (now && !now->window()->isModal())
            m_owner = now->window();
    });
}
RealDesktop::~RealDesktop() = default;

void RealDesktop::showMessage(const QString &text, const QString &title, Icon icon)
{
    runBox(boxIcon(icon), text, title, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, owner());
}

Desktop::Answer RealDesktop::askYesNo(const QString &text, const QString &title)
{
    const int button = runBox(QMessageBox::NoIcon, text, title, QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::Yes, QMessageBox::No, owner());
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::optional<QString> RealDesktop::askText(const QString &prompt, const QString &title)
{
    QInputDialog box(owner());
    box.setWindowTitle(title);
    box.setInputMode(QInputDialog::TextInput);
    // The prompt is the buddy of the input field, so that "&" would be taken for an access key.
    box.setLabelText(breakable(prompt).replace(u'&', "&&"_L1));
    auto *label = box.findChild<QLabel *>();
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(prompt.size() > longestPromptLine);
    box.findChild<QLineEdit *>()->setMinimumWidth(widthOfTitle(box));
    if (box.exec() != QDialog::Accepted)
        return std::nullopt;
    return box.textValue();
}

// Just after a box has closed no window is active yet; one that follows belongs to the window worked in.
QWidget *RealDesktop::owner()
{
    QWidget *active = QApplication::activeWindow();
    return active ? active : m_owner.data();
}

std::optional<QString> RealDesktop::askSaveFile(const QString &fileName, const QString &filter)
{
    const auto pointer = withPointer();
    return runSaveDialog(fileName, filter, owner());
}

std::optional<QString> RealDesktop::askOpenFile(const QString &filter)
{
    const auto pointer = withPointer();
    return runOpenDialog(filter, owner());
}

void RealDesktop::setHourglass(bool on)
{
    if (on == m_hourglass)
        return;
    m_hourglass = on;
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

std::unique_ptr<Progress> RealDesktop::showProgress(const QString &title, bool cancellable)
{
    return std::make_unique<ProgressBox>(title, cancellable, owner());
}

QList<Drive> RealDesktop::drives()
{
    return mountedDrives();
}

void RealDesktop::beep()
{
    QApplication::beep();
}

void RealDesktop::endProgram()
{
    if (m_help)
        m_help->discardTemporaryFiles();
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

HelpWindow &RealDesktop::help(const QString &helpFile)
{
    if (!m_help)
        m_help = std::make_unique<HelpWindow>();
    m_help->setHelpFile(helpFile);
    return *m_help;
}

void RealDesktop::showHelpTopic(const QString &helpFile, int topic)
{
    help(helpFile).showTopic(topic);
}
void RealDesktop::showHelpContents(const QString &helpFile)
{
    help(helpFile).showContents();
}
void RealDesktop::showHelpSearch(const QString &helpFile)
{
    help(helpFile).showSearch();
}
void RealDesktop::showHelpOnHelp(const QString &helpFile)
{
    help(helpFile).showHelpOnHelp();
}

void RealDesktop::openWebPage(const QUrl &address)
{
    QDesktopServices::openUrl(address);
}

} // namespace obelmark
