// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QTimer>

namespace obelmark {

class CoinFields;
class EntryWatch;

/// Tells while a coin is typed what saving would do to a number or a date other than keep it: its field has a
/// frame, and there is a sentence for the status line. What is told comes from the conversions that saving
/// uses.
class EntryHints : public QObject
{
    Q_OBJECT
public:
    EntryHints(QWidget &window, const CoinFields &fields, const EntryWatch &watch);

signals:
    /// What there is to say now: on the field with the focus, else on the first; empty when there is nothing.
    void told(const QString &sentence);

private:
    void tell();

    QWidget &m_window;
    const CoinFields &m_fields;
    const EntryWatch &m_watch;
    QTimer m_later; ///< once for all the fields of a coin that is being shown
};

} // namespace obelmark
