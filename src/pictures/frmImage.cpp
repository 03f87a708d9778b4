// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/frmImage.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "forms/AccessKeys.h"
#include "forms/HelpKey.h"
#include "pictures/NewPictureFile.h"
#include "pictures/PictureFiles.h"
#include "pictures/mIntelJPEGLibrary.h"
#include "runtime/NumberedError.h"
#include "ui_frmImage.h"
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

const QString pictureFilter =
    u"All Picture Files|*.bmp;*.dib;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur|Bitmaps (*.bmp,*.bid)|*.bmp;*.bid|"
    "GIF Images (*.gif)|*.gif|JPEG Images (*.jpg)|*.jpg|Metafiles (*.wmf,*.emf)|*.wmf;*.emf|"
    "Icons (*.ico,*.cur)|*.ico;*.cur|All Files (*.*)|*.*"_s;

/// The file that is dragged onto the window; empty when it is not one of this machine.
QString draggedFile(const QDropEvent &event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

frmImage::frmImage(SharedState &shared) : m_shared(shared), m_ui(std::make_unique<Ui::frmImage>())
{
    m_ui->setupUi(this);
    setAcceptDrops(true);
    new AccessKeys(*this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    connect(m_ui->cmdPicCopy, &QPushButton::clicked, this, &frmImage::cmdPicCopy_Click);
    connect(m_ui->cmdPicPaste, &QPushButton::clicked, this, &frmImage::cmdPicPaste_Click);
    connect(m_ui->cmdPicLoad, &QPushButton::clicked, this, &frmImage::cmdPicLoad_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::hide);
    setHasCoin(false);
}

frmImage::~frmImage() = default;

void frmImage::setHasCoin(bool hasCoin)
{
    m_hasCoin = hasCoin;
    m_ui->cmdPicLoad->setEnabled(hasCoin);
    m_ui->cmdPicPaste->setEnabled(hasCoin);
}

void frmImage::showCoin(qint64 coinId, OldFile oldFile)
{
    clear();
    const QString path = findPictureFile(m_shared.AppFolder, coinId);
    if (path.isEmpty())
        return;
    try {
        const Picture picture = Picture::fromFile(path, m_ui->Image1->boxes());
        m_ui->Image1->setPicture(picture);
        if (oldFile == OldFile::Convert && path.endsWith(u".bmp"))
            convert(picture, path);
    } catch (const NumberedError &error) {
        m_ui->Image1->clear(error.description());
    }
}

void frmImage::clear()
{
    m_hasNewPicture = false;
    m_shared.PictureChanged = false;
    m_ui->Image1->clear();
}

void frmImage::convert(const Picture &picture, const QString &path)
{
    const QString converted = path.chopped(4) + u".jpg"_s;
    try {
        writePicture(picture.whole(), converted);
        QFile::remove(path);
    } catch (const NumberedError &) {
        sayFailed(converted);
    }
}

std::unique_ptr<NewPictureFile> frmImage::writeNewPicture(qint64 coinId)
{
    if (!m_hasNewPicture)
        return nullptr;
    try {
        return std::make_unique<NewPictureFile>(m_ui->Image1->picture().whole(), m_shared.AppFolder, coinId);
    } catch (const NumberedError &) {
        sayFailed(writtenPictureFile(m_shared.AppFolder, coinId));
        return nullptr;
    }
}

void frmImage::placeNewPicture(NewPictureFile &file, qint64 coinId)
{
    try {
        file.place();
    } catch (const NumberedError &) {
        sayFailed(writtenPictureFile(m_shared.AppFolder, coinId));
    }
}

void frmImage::sayFailed(const QString &path)
{
    m_shared.desktop.showMessage(u"Failed to save the picture to the file: '%1'"_s.arg(path),
                                 QString::fromUtf16(applicationTitle), Desktop::Icon::Exclamation);
}

void frmImage::markChanged()
{
    m_shared.PictureChanged = true;
    emit changing();
}

void frmImage::cmdPicLoad_Click()
{
    const auto path = m_shared.desktop.askOpenFile(pictureFilter);
    if (path && !path->isEmpty())
        load(*path);
}

void frmImage::load(const QString &path)
{
    if (!QFileInfo::exists(path)) {
        m_shared.desktop.showMessage(u"File not found."_s);
        return;
    }
    try {
        m_ui->Image1->setPicture(Picture::fromFile(path, m_ui->Image1->boxes()));
    } catch (const NumberedError &error) {
        m_shared.desktop.showMessage(error.description());
        return;
    }
    m_hasNewPicture = true;
    markChanged();
}

void frmImage::cmdPicPaste_Click()
{
    markChanged();
    const Picture picture(QGuiApplication::clipboard()->image());
    if (picture.isEmpty())
        return;
    m_ui->Image1->setPicture(picture);
    m_hasNewPicture = true;
}

void frmImage::cmdPicCopy_Click()
{
    if (const QImage image = m_ui->Image1->picture().whole(); !image.isNull())
        QGuiApplication::clipboard()->setImage(image);
}

void frmImage::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_hasCoin && !draggedFile(*event).isEmpty())
        event->acceptProposedAction();
}

void frmImage::dropEvent(QDropEvent *event)
{
    const QString file = draggedFile(*event);
    event->acceptProposedAction();
    // The program that the file comes from is not kept waiting while a message stands.
    QMetaObject::invokeMethod(
        this, [this, file] { load(file); }, Qt::QueuedConnection);
}

} // namespace obelmark
