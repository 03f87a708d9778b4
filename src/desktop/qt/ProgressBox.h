// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Progress.h"

#include <QElapsedTimer>
#include <QProgressDialog>

namespace obelmark {

/// Progress as a box of the window system, shown once the work has taken a second.
class ProgressBox : public QObject, public Progress
{
public:
    ProgressBox(const QString &title, bool cancellable, QWidget *owner);

    bool update(const QString &text, qint64 done, qint64 total) override;

protected:
    bool eventFilter(QObject *box, QEvent *event) override;

private:
    bool goesOn() const;

    QProgressDialog m_box;
    bool m_cancellable;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceUpdate;
};

} // namespace obelmark
