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

ProgressBox::ProgressBox(const QString &title, bool cancellable, QWidget *owner) : m_box(owner)
{
    m_box.setObjectName(u"progress"_s);
    m_box.setWindowTitle(title);
    m_box.setWindowModality(Qt::ApplicationModal);
    m_box.setMinimumDuration(std::numeric_limits<int>::max());
    m_box.setMinimumWidth(m_box.fontMetrics().averageCharWidth() * 48);
    m_box.setAutoClose(false);
    m_box.setAutoReset(false);
    if (!cancellable)
        m_box.setCancelButton(nullptr);
    m_sinceStart.start();
    m_sinceUpdate.start();
}

bool ProgressBox::update(const QString &text, qint64 done, qint64 total)
{
    if (m_sinceStart.elapsed() < hiddenMs ||
        (m_box.isVisible() && m_sinceUpdate.elapsed() < betweenUpdatesMs))
        return !m_box.wasCanceled();
    m_sinceUpdate.restart();
    m_box.setLabelText(text);
    m_box.setRange(0, total > 0 ? steps : 0);
    if (total > 0)
        m_box.setValue(int(done * steps / total));
    if (!m_box.isVisible())
        m_box.show();
    QApplication::processEvents();
    return !m_box.wasCanceled();
}

} // namespace obelmark
