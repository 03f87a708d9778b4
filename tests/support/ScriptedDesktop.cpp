#include "support/ScriptedDesktop.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace obelmark {

namespace {

QString describe(const ScriptedDesktop::Call &box)
{
    using Kind = ScriptedDesktop::Kind;
    const QString kind = box.kind == Kind::Message    ? u"message"_s
                         : box.kind == Kind::YesNo    ? u"yes/no question"_s
                         : box.kind == Kind::SaveFile ? u"save dialog"_s
                         : box.kind == Kind::OpenFile ? u"open dialog"_s
                                                      : u"input box"_s;
    const QString icon = box.icon == Desktop::Icon::Exclamation ? u", exclamation icon"_s
                         : box.icon == Desktop::Icon::Critical  ? u", critical icon"_s
                                                                : QString();
    return u"%1 \"%2\", title \"%3\"%4"_s.arg(kind, box.text, box.title, icon);
}

} // namespace

void ScriptedDesktop::expectMessage(const QString &text, const QString &title, Icon icon)
{
    m_script.append(Step{{Kind::Message, text, title, icon}});
}

void ScriptedDesktop::answerYesNo(const QString &text, const QString &title, Answer answer)
{
    m_script.append(Step{{Kind::YesNo, text, title}, answer});
}

void ScriptedDesktop::answerText(const QString &prompt, const QString &title,
                                 const std::optional<QString> &answer)
{
    m_script.append(Step{{Kind::Text, prompt, title}, Answer::No, answer});
}

void ScriptedDesktop::answerSaveFile(const QString &fileName, const QString &filter,
                                     const std::optional<QString> &answer)
{
    m_script.append(Step{{Kind::SaveFile, filter, fileName}, Answer::No, answer});
}

void ScriptedDesktop::answerOpenFile(const QString &filter, const std::optional<QString> &answer)
{
    m_script.append(Step{{Kind::OpenFile, filter}, Answer::No, answer});
}

qsizetype ScriptedDesktop::count(Kind kind) const
{
    return std::ranges::count(m_calls, kind, &Call::kind);
}

QStringList ScriptedDesktop::leftovers() const
{
    QStringList lines;
    for (const Step &step : m_script)
        lines.append(u"never came: "_s + describe(step.box));
    return lines;
}

void ScriptedDesktop::reset()
{
    m_script.clear();
    m_calls.clear();
    m_surprises.clear();
    m_cancelAt = 0;
    m_progressLooks = 0;
}

ScriptedDesktop::Step ScriptedDesktop::play(const Call &box)
{
    m_calls.append(box);
    if (!m_script.isEmpty() && m_script.first().box == box)
        return m_script.takeFirst();
    m_surprises.append(u"not expected now: "_s + describe(box));
    return Step{box};
}

void ScriptedDesktop::showMessage(const QString &text, const QString &title, Icon icon)
{
    play(Call{Kind::Message, text, title, icon});
}

Desktop::Answer ScriptedDesktop::askYesNo(const QString &text, const QString &title)
{
    return play(Call{Kind::YesNo, text, title}).answer;
}

std::optional<QString> ScriptedDesktop::askText(const QString &prompt, const QString &title)
{
    return play(Call{Kind::Text, prompt, title}).text;
}

std::optional<QString> ScriptedDesktop::askSaveFile(const QString &fileName, const QString &filter)
{
    return play(Call{Kind::SaveFile, filter, fileName}).text;
}

std::optional<QString> ScriptedDesktop::askOpenFile(const QString &filter)
{
    return play(Call{Kind::OpenFile, filter}).text;
}

namespace {

class ScriptedProgress : public Progress
{
public:
    ScriptedProgress(int &looks, const int &cancelAt) : m_looks(looks), m_cancelAt(cancelAt) {}
    bool update(const QString &, qint64, qint64) override { return ++m_looks != m_cancelAt; }

private:
    int &m_looks;
    const int &m_cancelAt;
};

} // namespace

std::unique_ptr<Progress> ScriptedDesktop::showProgress(const QString &, bool)
{
    return std::make_unique<ScriptedProgress>(m_progressLooks, m_cancelAt);
}

void ScriptedDesktop::beep()
{
    m_calls.append(Call{Kind::Beep, QString()});
}

void ScriptedDesktop::endProgram()
{
    m_calls.append(Call{Kind::EndProgram, QString()});
    throw ProgramEnded();
}

void ScriptedDesktop::showHelpTopic(const QString &helpFile, int topic)
{
    m_calls.append(Call{Kind::HelpTopic, helpFile, QString(), Icon::None, topic});
}

void ScriptedDesktop::showHelpContents(const QString &helpFile)
{
    m_calls.append(Call{Kind::HelpContents, helpFile});
}

void ScriptedDesktop::showHelpSearch(const QString &helpFile)
{
    m_calls.append(Call{Kind::HelpSearch, helpFile});
}

void ScriptedDesktop::showHelpOnHelp(const QString &helpFile)
{
    m_calls.append(Call{Kind::HelpOnHelp, helpFile});
}

void ScriptedDesktop::openWebPage(const QUrl &address)
{
    m_calls.append(Call{Kind::WebPage, address.toString()});
}

} // namespace obelmark
