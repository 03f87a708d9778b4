// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHelpEngine>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <optional>

namespace obelmark {

/// The program's help file (a compressed Qt help file whatever its extension) opened for reading. The
/// collection that Qt Help keeps beside it lies in a temporary folder, so nothing is written into the program
/// folder.
class HelpBook
{
public:
    struct Page
    {
        QString title;
        QString text; ///< plain text, without the title
        QUrl address;
    };

    HelpBook();

    /// Opens another file, or the same one again when it could not be read before.
    void setFile(const QString &path);
    const QString &file() const { return m_file; }
    /// Why there is nothing to read, as plain text; empty when the file is open.
    const QString &problem() const { return m_problem; }

    static QUrl topicAddress(int topic);
    /// The number of the topic whose address that is, or nothing.
    static std::optional<int> topicOf(const QUrl &address);

    /// The page (or other file) at that address; empty when there is none.
    QByteArray data(const QUrl &address) const;
    /// The pages that contain all of the words, in any letter case, those first that have them in their
    /// title.
    QList<Page> search(const QString &words);

    /// The contents and the index as widgets.
    QHelpEngine &engine() { return m_engine; }

    /// Removes the temporary folder; for the end of a program that runs no destructors.
    void discardTemporaryFiles() { m_folder.remove(); }

private:
    QString readFile();
    void loadPages();

    QTemporaryDir m_folder;
    QHelpEngine m_engine;
    QString m_file;
    QString m_problem;
    QList<Page> m_pages; ///< of the open file, read at the first search
};

} // namespace obelmark
