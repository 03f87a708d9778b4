// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/ScriptedDesktop.h"

namespace obelmark {

namespace {

QString describe(const ScriptedDesktop::Call &box)
{
    const QStringList kinds{u"message"_s, u"yes/no question"_s, u"input box"_s, u"save dialog"_s,
                            u"open dialog"_s};
    return u"%1 \"%2\", title \"%3\", icon %4"_s.arg(kinds.value(int(box.kind)), box.text, box.title)
        .arg(int(box.icon));
}

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

QStringList ScriptedDesktop::leftovers() const
{
    QStringList lines;
    for (const Step &step : m_script)
        lines << u"never came: "_s + describe(step.box);
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
    m_calls << box;
    if (!m_script.isEmpty() && m_script.first().box == box)
        return m_script.takeFirst();
    m_surprises << u"not expected now: "_s + describe(box);
    return Step{box};
}

std::unique_ptr<Progress> ScriptedDesktop::showProgress(const QString &, bool)
{
    return std::make_unique<ScriptedProgress>(m_progressLooks, m_cancelAt);
}

} // namespace obelmark
