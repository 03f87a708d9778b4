// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/SharedState.h"
#include "documents/ReportDocument.h"
#include "documents/ReportPreview.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <QtCore>

namespace obelmark {

/// Reports on a collection of its own, with a preview that nobody sees.
class ReportFixture
{
public:
    class Preview : public ReportPreview
    {
    public:
        explicit Preview(const ScriptedDesktop &desktop) : m_desktop(desktop) {}
        ReportDocument &document() override
        {
            hourglassSeen = hourglassSeen || m_desktop.hourglass();
            return m_document;
        }
        void show() override { ++shows; }

        int shows = 0;
        bool hourglassSeen = false;

    private:
        const ScriptedDesktop &m_desktop;
        ReportDocument m_document;
    };

    explicit ReportFixture(const QString &sql = {}, const QLocale &locale = QLocale(QStringLiteral("en_US")))
        : shared(desktop, RegionalSettings(locale)), preview(desktop)
    {
        if (!sql.isEmpty())
            collection.exec(sql);
        shared.DatabasePath = collection.databasePath();
        shared.CoinDatabase = Database::open(shared.DatabasePath, Database::Access::Exclusive, {});
    }

    QString file() const { return collection.folder() + QStringLiteral("report.txt"); }
    QByteArray content() const
    {
        QFile written(file());
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("no file");
    }
    void writeFile(const QByteArray &bytes) const
    {
        QFile written(file());
        if (!written.open(QIODevice::WriteOnly) || written.write(bytes) != bytes.size())
            qFatal("a file could not be made");
    }
    QStringList filesInFolder() const
    {
        return QDir(collection.folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void answerTextFile(const QString &proposedName, const std::optional<QString> &path)
    {
        desktop.answerSaveFile(proposedName, QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"),
                               path);
    }
    void answerReplace(Desktop::Answer answer, const QString &path)
    {
        desktop.answerYesNo(
            QStringLiteral("The file '%1' already exists.  Do you wish to replace it?").arg(path),
            QStringLiteral("File Exists"), answer);
    }
    void answerReplace(Desktop::Answer answer) { answerReplace(answer, file()); }

    TestCollection collection;
    ScriptedDesktop desktop;
    SharedState shared;
    Preview preview;
};

} // namespace obelmark
