#pragma once

#include <QString>
#include <QUrl>
#include <optional>

namespace obelmark {

/// The title of message boxes that name none.
inline constexpr char16_t applicationTitle[] = u"Obelmark";

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
