// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "walk/CoinModel.h"

namespace obelmark::walk {

/// The maintenance window of one lookup list as it should be.
class EntryModel
{
public:
    EntryModel(const Lookup &of, CoinModel &mainWindow);

    const Lookup &lookup() const { return m_lookup; }
    void enter(const QString &name, const QString &value);
    void move(Way way);
    void addNew();
    void update();
    void cancel();
    void remove(bool yes);
    void find(const QString &beginning);

    Cursor entries;
    State state = State::Browsing;
    bool enabled = false;
    QMap<QString, QString> columns; ///< by field
    QMap<QString, QString> shown;

private:
    void show();
    bool save();

    const Lookup &m_lookup;
    CoinModel &m_main;
    qint64 m_saved = 0;
};

} // namespace obelmark::walk
