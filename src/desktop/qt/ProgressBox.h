#pragma once

#include "desktop/Progress.h"

#include <QElapsedTimer>
#include <QProgressDialog>

namespace obelmark {

/// Progress as a box of the window system, shown once the work has taken a second.
class ProgressBox : public Progress
{
public:
    ProgressBox(const QString &title, bool cancellable, QWidget *owner);

    bool update(const QString &text, qint64 done, qint64 total) override;

private:
    QProgressDialog m_box;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceUpdate;
};

} // namespace obelmark
