// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

namespace obelmark {

/// Lets a second start of the program on the same folder, by the same user, bring the running one to the
/// front. The second knocks; there is nothing that it could say.
class SecondStart : public QObject
{
    Q_OBJECT
public:
    /// Listens from now on, unless another program listens for that folder.
    explicit SecondStart(const QString &folder);
    ~SecondStart() override;
    Q_DISABLE_COPY_MOVE(SecondStart)

    /// Returns when the running program has heard it, at once when there is none, and after a fifth of a
    /// second when it does not answer.
    static void knock(const QString &folder);

signals:
    void knocked();

private:
    void answer();

    int m_socket = -1;
};

} // namespace obelmark
