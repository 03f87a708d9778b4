// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/LostFile.h"

#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "common/TextHelpers.h"
#include "desktop/Desktop.h"
#include "engine/care/FreeName.h"
#include "engine/language/EngineError.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include <QDir>
#include <QFileInfo>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QString boxTitle()
{
    return u"Collection File"_s;
}

/// The file is opened at DatabasePath; as long as that fails, the user may help and have it tried again, so
/// that nothing typed is lost.
void reopen(SharedState &shared)
{
    const bool recordsetWasOpen = shared.CoinRecordset != nullptr;
    shared.CoinRecordset.reset();
    shared.CoinDatabase.reset();
    for (;;) {
        try {
            reopenCoinDatabase(shared, recordsetWasOpen);
            return;
        } catch (const NumberedError &error) {
            if (error.number() == DatabaseDamaged) {
                if (offerRepair(shared, u"'%1' cannot be used"_s.arg(shared.DatabasePath), boxTitle()))
                    continue;
            } else if (shared.desktop.askYesNo(
                           u"'%1' cannot be opened.\n\n%2\n\nDo you wish to try again?"_s.arg(
                               shared.DatabasePath, numberAndText(error)),
                           boxTitle()) == Desktop::Answer::Yes) {
                continue;
            }
            endProgram(shared);
        }
    }
}

void openChangedFile(SharedState &shared)
{
    shared.desktop.showMessage(
        u"Another program has written into '%1', the file of the collection, while this program was using "
        "it.\n\nWait until the other program has finished, and press OK.  The file is then opened anew, and "
        "what stands in it now is shown.  A record that you are typing stays on the screen, as a new "
        "one."_s.arg(shared.DatabasePath),
        boxTitle());
    reopen(shared);
    ++shared.DatabaseChanges;
}

/// The program's folder is where it always was, but has another name.
bool followFolder(SharedState &shared)
{
    QDir folder = QDir::current();
    const QString path = folder.filePath(QFileInfo(shared.DatabasePath).fileName());
    if (!shared.CoinDatabase->isAt(path))
        return false;
    shared.AppFolder = folder.path().endsWith(u'/') ? folder.path() : folder.path() + u'/';
    shared.DatabasePath = path;
    shared.HelpFilePath = pathInAnyCase(shared.AppFolder, u"coin.hlp"_s);
    reopen(shared);
    shared.desktop.showMessage(
        u"The folder of the collection has another name now: '%1'.  The program goes on in that folder."_s
            .arg(folder.path()),
        boxTitle());
    return true;
}

/// Where the collection could be saved; the folder itself may be gone.
QString proposedPath(const SharedState &shared)
{
    const QDir folder = QFileInfo(shared.DatabasePath).dir();
    return freeName((folder.exists() ? folder : QDir::current()).filePath(u"coin.mdb"_s), "saved"_L1);
}

/// Answers the new file; nothing when the user has given it up.
std::optional<QString> saveCollection(SharedState &shared, QString path)
{
    for (;;) {
        try {
            shared.CoinDatabase->saveAs(path, shownProgress(shared.desktop, boxTitle(), false));
            return path;
        } catch (const NumberedError &error) {
            shared.desktop.showMessage(
                u"The collection could not be saved as '%1'.\n\n%2"_s.arg(path, numberAndText(error)),
                boxTitle());
        }
        const auto other = shared.desktop.askSaveFile(QFileInfo(path).fileName(),
                                                      u"Collections (*.mdb)|*.mdb|All Files (*.*)|*.*"_s);
        if (!other)
            return {};
        path = *other;
    }
}

void saveElsewhere(SharedState &shared, const QString &whatHappened)
{
    const QString proposed = proposedPath(shared);
    const auto answer = shared.desktop.askYesNo(
        whatHappened.arg(shared.DatabasePath) +
            u"\n\nNothing can be saved in it any more.  All that was saved before is still known to this "
            "program, until it ends.\n\nDo you wish to save the collection in a new file, '%1'?"_s.arg(
                proposed),
        boxTitle());
    if (answer == Desktop::Answer::No)
        return;
    const auto saved = saveCollection(shared, proposed);
    if (!saved)
        return;
    shared.DatabasePath = *saved;
    reopen(shared);
    shared.desktop.showMessage(
        u"The collection has been saved as '%1', and the program goes on with that file until it ends.  When "
        "it is started again, it opens the file '%2', as always.\n\nIf you were typing a record, it is still "
        "on the screen and not saved yet."_s.arg(*saved, pathInAnyCase(shared.AppFolder, u"coin.mdb"_s)),
        boxTitle());
}

} // namespace

void meetLostFile(SharedState &shared)
{
    shared.FileLossTold = true;
    switch (shared.CoinDatabase->fileState()) {
    case FileState::InPlace:
        return;
    case FileState::Overwritten:
        openChangedFile(shared);
        return;
    case FileState::Replaced:
        saveElsewhere(shared, u"Another program has put another file in the place of '%1', the file of the "
                              "collection, while this program was using it."_s);
        return;
    case FileState::Missing:
        if (!followFolder(shared))
            saveElsewhere(shared,
                          u"'%1', the file of the collection, is not there any more: it was deleted or "
                          "given another name while this program was using it."_s);
        return;
    }
}

LentFile::LentFile(SharedState &shared) : m_shared(shared), m_database(std::move(shared.CoinDatabase))
{
    shared.CoinRecordset.reset();
    if (m_database)
        m_database->standAside();
}

LentFile::~LentFile() = default;

void LentFile::takeBack()
{
    if (!m_database || m_database->fileState() != FileState::Missing) {
        m_database.reset();
        return;
    }
    m_shared.CoinDatabase = std::move(m_database);
    meetLostFile(m_shared);
}

} // namespace obelmark
