// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/windows/frmBackup.h"

#include "backup/Backup.h"
#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "desktop/Desktop.h"
#include "engine/language/EngineError.h"
#include "forms/HelpKey.h"
#include "store/ErrorHandling.h"
#include "ui_frmBackup.h"
#include <QFileInfo>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const Drive &drive, const QLocale &locale)
{
    const QString folder = backupFolder(drive);
    const QString name = drive.name.isEmpty() ? folder : u"%1 (%2)"_s.arg(drive.name, folder);
    if (!drive.isWritable)
        return name + u", cannot be written to"_s;
    return u"%1, %2 free"_s.arg(name, locale.formattedDataSize(drive.freeBytes, 1));
}

} // namespace

frmBackup::frmBackup(SharedState &shared) : m_shared(shared), m_ui(std::make_unique<Ui::frmBackup>())
{
    m_ui->setupUi(this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    connect(m_ui->cmdOk, &QPushButton::clicked, this, &frmBackup::cmdOk_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

frmBackup::~frmBackup() = default;

void frmBackup::Form_Load()
{
    const QList<Drive> drives = m_shared.desktop.drives();
    for (const Drive &drive : drives)
        m_ui->Drive1->addItem(textOf(drive, m_shared.regional.locale()), drive.root);
    const auto first = std::ranges::max_element(
        drives, {}, [](const Drive &drive) { return std::pair(drive.isWritable, drive.removable); });
    m_ui->Drive1->setCurrentIndex(int(first - drives.begin()));
}

void frmBackup::cmdOk_Click()
{
    m_shared.desktop.setHourglass(true);
    backUp();
    accept();
    m_shared.desktop.setHourglass(false);
}

void frmBackup::backUp()
{
    try {
        copyToDrive();
    } catch (const FileWorkStopped &) {
    } catch (const NumberedError &error) {
        if (error.number() == DatabaseDamaged) {
            if (offerRepair(m_shared, u"The database could not be backed up"_s, windowTitle()))
                backUp();
            return;
        }
        if (!QFileInfo::exists(m_shared.DatabasePath)) {
            m_shared.desktop.showMessage(
                u"The database could not be backed up, because there is no file '%1' any more."_s.arg(
                    m_shared.DatabasePath),
                windowTitle());
            return;
        }
        m_shared.desktop.showMessage(
            u"Backup could not be Performed.  Make sure a formatted disk with sufficient free space is in "
            "the selected drive."_s);
    }
}

void frmBackup::copyToDrive()
{
    const QString root = m_ui->Drive1->currentData().toString();
    // A medium taken out meanwhile leaves an empty folder, which lies on another drive.
    const QList<Drive> drives = m_shared.desktop.drives();
    const auto drive = std::ranges::find(drives, root, &Drive::root);
    if (drive == drives.end())
        throw runtimeError(PathNotFound);
    backUpDatabase(m_shared.DatabasePath, *drive, shownProgress(m_shared.desktop, windowTitle()));
}

} // namespace obelmark
