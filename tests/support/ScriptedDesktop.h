// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Desktop.h"

#include <QtCore>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

/// Thrown by ScriptedDesktop::endProgram(), so that no next statement runs.
struct ProgramEnded
{
};

/// A desktop whose user follows a script. A test writes down, in their order, the boxes that it expects and
/// how they are answered, runs the program, and at the end requires problems() to be empty.
class ScriptedDesktop : public Desktop
{
public:
    // clang-format off
    enum class Kind { Message, YesNo, Text, SaveFile, OpenFile, Beep, EndProgram,
                      HelpTopic, HelpContents, HelpSearch, HelpOnHelp, WebPage };
    // clang-format on

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
                       Icon icon = Icon::None)
    {
        m_script << Step{{Kind::Message, text, title, icon}};
    }
    void answerYesNo(const QString &text, const QString &title, Answer answer)
    {
        m_script << Step{{Kind::YesNo, text, title}, answer};
    }
    /// An empty answer is the empty text confirmed with OK; no answer is Cancel.
    void answerText(const QString &prompt, const QString &title, const std::optional<QString> &answer)
    {
        m_script << Step{{Kind::Text, prompt, title}, Answer::No, answer};
    }
    /// The chosen path; no answer is Cancel.
    void answerSaveFile(const QString &fileName, const QString &filter, const std::optional<QString> &answer)
    {
        m_script << Step{{Kind::SaveFile, filter, fileName}, Answer::No, answer};
    }
    void answerOpenFile(const QString &filter, const std::optional<QString> &answer)
    {
        m_script << Step{{Kind::OpenFile, filter}, Answer::No, answer};
    }
    /// The user presses Cancel at the n-th look (from 1) at a progress box; 0 never.
    void cancelProgressAt(int look) { m_cancelAt = look; }
    /// How often progress was shown to the user since the last reset.
    int progressLooks() const { return m_progressLooks; }
    bool hourglass() const { return m_hourglass; }
    void setDrives(const QList<Drive> &drives) { m_drives = drives; }

    /// Every call, in order, whether expected or not.
    const QList<Call> &calls() const { return m_calls; }
    qsizetype count(Kind kind) const { return std::ranges::count(m_calls, kind, &Call::kind); }
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
                     Icon icon = Icon::None) override
    {
        play({Kind::Message, text, title, icon});
    }
    Answer askYesNo(const QString &text, const QString &title) override
    {
        return play({Kind::YesNo, text, title}).answer;
    }
    std::optional<QString> askText(const QString &prompt, const QString &title) override
    {
        return play({Kind::Text, prompt, title}).text;
    }
    std::optional<QString> askSaveFile(const QString &fileName, const QString &filter) override
    {
        return play({Kind::SaveFile, filter, fileName}).text;
    }
    std::optional<QString> askOpenFile(const QString &filter) override
    {
        return play({Kind::OpenFile, filter}).text;
    }
    void setHourglass(bool on) override { m_hourglass = on; }
    std::unique_ptr<Progress> showProgress(const QString &title, bool cancellable) override;
    QList<Drive> drives() override { return m_drives; }
    void beep() override { m_calls << Call{Kind::Beep, {}}; }
    [[noreturn]] void endProgram() override
    {
        m_calls << Call{Kind::EndProgram, {}};
        throw ProgramEnded();
    }
    void showHelpTopic(const QString &file, int topic) override
    {
        m_calls << Call{Kind::HelpTopic, file, {}, Icon::None, topic};
    }
    void showHelpContents(const QString &file) override { m_calls << Call{Kind::HelpContents, file}; }
    void showHelpSearch(const QString &file) override { m_calls << Call{Kind::HelpSearch, file}; }
    void showHelpOnHelp(const QString &file) override { m_calls << Call{Kind::HelpOnHelp, file}; }
    void openWebPage(const QUrl &address) override { m_calls << Call{Kind::WebPage, address.toString()}; }

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
