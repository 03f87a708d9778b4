// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/ProgressBox.h"

#include <QApplication>
#include <QPushButton>
#include <limits>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 hiddenMs = 1000;
constexpr qint64 betweenUpdatesMs = 50;
constexpr int steps = 1000;

} // namespace

ProgressBox::ProgressBox(const QString &title, bool cancellable, QWidget *owner)
    : m_box(owner), m_cancellable(cancellable)
{
    m_box.setObjectName(u"progress"_s);
    m_box.setWindowTitle(title);
    m_box.setWindowModality(Qt::ApplicationModal);
    m_box.setMinimumDuration(std::numeric_limits<int>::max());
    m_box.setMinimumWidth(m_box.fontMetrics().averageCharWidth() * 48);
    m_box.setAutoClose(false);
    m_box.setAutoReset(false);
    if (!cancellable) {
        m_box.setCancelButton(nullptr);
        m_box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
        m_box.installEventFilter(this);
    }
    m_sinceStart.start();
    m_sinceUpdate.start();
}

bool ProgressBox::goesOn() const
{
    return !m_cancellable || !m_box.wasCanceled();
}

// Work that cannot be stopped keeps its box: neither Escape nor the desktop's ways to close a window end it.
bool ProgressBox::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Close)
        event->ignore();
    return event->type() == QEvent::Close || event->type() == QEvent::KeyPress ||
           event->type() == QEvent::ShortcutOverride;
}

bool ProgressBox::update(const QString &text, qint64 done, qint64 total)
{
    if (m_sinceStart.elapsed() < hiddenMs ||
        (m_box.isVisible() && m_sinceUpdate.elapsed() < betweenUpdatesMs))
        return goesOn();
    m_sinceUpdate.restart();
    m_box.setLabelText(text);
    m_box.setRange(0, total > 0 ? steps : 0);
    if (total > 0)
        m_box.setValue(int(done * steps / total));
    if (!m_box.isVisible())
        m_box.show();
    QApplication::processEvents();
    return goesOn();
}

} // namespace obelmark
