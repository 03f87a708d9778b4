// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/SharedState.h"
#include "editor/Program.h"
#include "editor/ProgramWindows.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include "walk/CoinModel.h"
#include <QtCore>
#include <optional>

class QWidget;

namespace obelmark {

class frmMain;

namespace walk {

class EntryModel;

/// A user who does at random what can be done to coins, in the windows of the program and, each time, in the
/// models of them.
class Walk
{
public:
    Walk(quint32 seed, const QString &sql);
    ~Walk();

    /// One operation. Answers how program and models differ afterwards: nothing, when they do not.
    QString step();
    const QStringList &done() const { return m_done; }

private:
    void open();
    void close();
    frmMain &main() const;

    void stepInMain();
    void edit();
    void press(const QString &button);
    void chooseInFind(QWidget &dialog, bool &cancelled);
    void maintain();
    void stepInEntries(EntryModel &entries, QWidget &window);
    void pack(bool yes);

    bool reach(const QString &name);
    bool turnTo(QWidget &field);
    QString differenceInMain() const;
    QString differenceInEntries(const EntryModel &entries, const QWidget &window) const;
    QString differenceInDesktop();
    QString differenceInFile();

    int below(int n) { return int(m_random.bounded(n)); }
    bool oneIn(int n) { return below(n) == 0; }
    template<class List>
    auto oneOf(const List &list)
    {
        return list[below(int(list.size()))];
    }
    QString wordFor(Kind kind);

    /// What the Find dialog keeps from one search to the next.
    struct Search
    {
        int field = -1;
        std::optional<qint64> key;
        QMap<QString, int> operators; ///< by list
        QString text;
        int way = 0;
    };
    Search m_search;

    QRandomGenerator m_random;
    TestCollection m_collection;
    ScriptedDesktop m_desktop;
    QMap<QString, Table> m_tables;
    CoinModel m_model;
    std::optional<SharedState> m_shared;
    std::optional<ProgramWindows> m_windows;
    std::optional<Program> m_program;
    QByteArray m_file;
    QString m_difference;
    QStringList m_done;
};

} // namespace walk
} // namespace obelmark
