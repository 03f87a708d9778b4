// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Desktop.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace obelmark {

class HelpWindow;

/// The desktop of the running program. Must be created after the QApplication and destroyed before it. Boxes
/// belong to the active window and block the others; text from records is never taken for markup.
class RealDesktop : public Desktop
{
public:
    RealDesktop();
    ~RealDesktop() override;

    void showMessage(const QString &text, const QString &title = QString::fromUtf16(applicationTitle),
                     Icon icon = Icon::None) override;
    Answer askYesNo(const QString &text, const QString &title) override;
    std::optional<QString> askText(const QString &prompt, const QString &title) override;
    std::optional<QString> askSaveFile(const QString &fileName, const QString &filter) override;
    std::optional<QString> askOpenFile(const QString &filter) override;
    void setHourglass(bool on) override;
    std::unique_ptr<Progress> showProgress(const QString &title, bool cancellable) override;
    QList<Drive> drives() override;
    void beep() override;
    [[noreturn]] void endProgram() override;
    void showHelpTopic(const QString &helpFile, int topic) override;
    void showHelpContents(const QString &helpFile) override;
    void showHelpSearch(const QString &helpFile) override;
    void showHelpOnHelp(const QString &helpFile) override;
    void openWebPage(const QUrl &address) override;

private:
    HelpWindow &help(const QString &helpFile);
    /// The window that the next box belongs to.
    QWidget *owner();

    QObject m_watcher;
    QPointer<QWidget> m_owner; ///< the window, and no box, that was worked in last
    bool m_hourglass = false;

    /// Made when help is first asked for: opening help files is no part of the start.
    std::unique_ptr<HelpWindow> m_help;
};

} // namespace obelmark
