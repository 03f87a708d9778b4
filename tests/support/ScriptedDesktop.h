#pragma once

#include "desktop/Desktop.h"

#include <QList>
#include <QStringList>

namespace obelmark {

/// Thrown by ScriptedDesktop::endProgram(), so that no next statement runs.
struct ProgramEnded
{
};

/// A desktop whose user follows a script. A test writes down, in their order, the boxes that it expects and
/// how they are answered, runs the program, and at the end requires problems() to be empty.
class ScriptedDesktop : public Desktop
{
public:
    enum class Kind {
        Message,
        YesNo,
        Text,
        SaveFile,
        OpenFile,
        Beep,
        EndProgram,
        HelpTopic,
        HelpContents,
        HelpSearch,
        HelpOnHelp,
        WebPage
    };

    /// What the program did.
    struct Call
    {
        Kind kind;
        /// Text of the box; filter of a file dialog; path of the help file; address of the web page.
        QString text;
        QString title = {};     ///< of a box; the name that a file dialog proposes
        Icon icon = Icon::None; ///< of a message
        int topic = 0;          ///< of HelpTopic

        bool operator==(const Call &) const = default;
    };

    void expectMessage(const QString &text, const QString &title = QString::fromUtf16(applicationTitle),
                       Icon icon = Icon::None);
    void answerYesNo(const QString &text, const QString &title, Answer answer);
    /// An empty answer is the empty text confirmed with OK; no answer is Cancel.
    void answerText(const QString &prompt, const QString &title, const std::optional<QString> &answer);

    /// The chosen path; no answer is Cancel.
    void answerSaveFile(const QString &fileName, const QString &filter, const std::optional<QString> &answer);
    void answerOpenFile(const QString &filter, const std::optional<QString> &answer);
    /// The user presses Cancel at the n-th look (from 1) at a progress box; 0 never.
    void cancelProgressAt(int look) { m_cancelAt = look; }
    /// How often progress was shown to the user since the last reset.
    int progressLooks() const { return m_progressLooks; }
    bool hourglass() const { return m_hourglass; }
    void setDrives(const QList<Drive> &drives) { m_drives = drives; }

    /// Every call, in order, whether expected or not.
    const QList<Call> &calls() const { return m_calls; }
    qsizetype count(Kind kind) const;
    qsizetype beeps() const { return count(Kind::Beep); }

    /// Boxes that were not the next ones of the script. They were answered with Ok, No or Cancel.
    const QStringList &surprises() const { return m_surprises; }
    /// Boxes of the script that have not come.
    QStringList leftovers() const;
    /// Both: what is not as the script has it, one line each.
    QStringList problems() const { return m_surprises + leftovers(); }
    /// Forgets script and calls.
    void reset();

    void showMessage(const QString &text, const QString &title = QString::fromUtf16(applicationTitle),
                     Icon icon = Icon::None) override;
    Answer askYesNo(const QString &text, const QString &title) override;
    std::optional<QString> askText(const QString &prompt, const QString &title) override;
    std::optional<QString> askSaveFile(const QString &fileName, const QString &filter) override;
    std::optional<QString> askOpenFile(const QString &filter) override;
    void setHourglass(bool on) override { m_hourglass = on; }
    std::unique_ptr<Progress> showProgress(const QString &title, bool cancellable) override;
    QList<Drive> drives() override { return m_drives; }
    void beep() override;
    [[noreturn]] void endProgram() override;
    void showHelpTopic(const QString &helpFile, int topic) override;
    void showHelpContents(const QString &helpFile) override;
    void showHelpSearch(const QString &helpFile) override;
    void showHelpOnHelp(const QString &helpFile) override;
    void openWebPage(const QUrl &address) override;

private:
    struct Step
    {
        Call box;
        Answer answer = Answer::No;
        std::optional<QString> text = {};
    };

    Step play(const Call &box);

    QList<Step> m_script;
    QList<Call> m_calls;
    QStringList m_surprises;
    QList<Drive> m_drives;
    int m_cancelAt = 0;
    int m_progressLooks = 0;
    bool m_hourglass = false;
};

} // namespace obelmark
