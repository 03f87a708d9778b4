// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Progress.h"

#include <QList>
#include <QString>
#include <QUrl>
#include <memory>
#include <optional>

namespace obelmark {

/// The title of message boxes that name none.
inline constexpr char16_t applicationTitle[] = u"Obelmark";

/// A mounted volume that files can be copied to.
struct Drive
{
    QString name;     ///< what the user knows it by
    QString root;     ///< path of its root folder, without a trailing "/" except for "/" itself
    qint64 freeBytes; ///< what the user may still write there
    bool removable;
    bool isWritable = true; ///< false when the user may not write into the root folder
    bool isHome = false;    ///< the root is the user's home folder, on a volume whose own is not writable
};

/// The one door through which the program speaks to the user and to the window system. The real one uses the
/// platform's standard dialogs; tests use a scripted one.
class Desktop
{
public:
    enum class Icon { None, Exclamation, Critical };
    enum class Answer { Yes, No };

    virtual ~Desktop() = default;

    /// A message box with an Ok button; the text is plain text.
    virtual void showMessage(const QString &text, const QString &title = QString::fromUtf16(applicationTitle),
                             Icon icon = Icon::None) = 0;
    /// A message box with Yes (the default) and No (also Escape).
    virtual Answer askYesNo(const QString &text, const QString &title) = 0;
    /// An input box for a single value; nothing when it was cancelled.
    virtual std::optional<QString> askText(const QString &prompt, const QString &title) = 0;

    /// The platform's file dialogs; the chosen path, nothing when cancelled. They ask no question of their
    /// own about files that exist or do not, and add no suffix. \a filter is pairs of label and patterns, all
    /// separated by "|": "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"; patterns by ";"; "*.*" is every
    /// file. \a fileName is proposed, in the dialog's default folder.
    virtual std::optional<QString> askSaveFile(const QString &fileName, const QString &filter) = 0;
    virtual std::optional<QString> askOpenFile(const QString &filter) = 0;

    /// The hourglass in place of the mouse pointer, and back. Calls do not nest.
    virtual void setHourglass(bool on) = 0;
    /// \a cancellable offers a Cancel button.
    virtual std::unique_ptr<Progress> showProgress(const QString &title, bool cancellable) = 0;

    /// The mounted volumes, removable ones first; no pseudo file systems. Only removable ones may be such
    /// that the user cannot write to.
    virtual QList<Drive> drives() = 0;

    virtual void beep() = 0;

    /// Ends the program at once: no window is asked or unloaded, nothing further is saved. Never returns.
    [[noreturn]] virtual void endProgram() = 0;

    /// The help window on the page of that topic number, on the contents, on the search, on its own use.
    /// \a helpFile is the path of the program's help file.
    virtual void showHelpTopic(const QString &helpFile, int topic) = 0;
    virtual void showHelpContents(const QString &helpFile) = 0;
    virtual void showHelpSearch(const QString &helpFile) = 0;
    virtual void showHelpOnHelp(const QString &helpFile) = 0;

    virtual void openWebPage(const QUrl &address) = 0;
};

} // namespace obelmark
