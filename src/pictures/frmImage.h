// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>
#include <memory>

namespace obelmark {

class NewPictureFile;
class Picture;
struct SharedState;
namespace Ui {
class frmImage;
}

/// The picture window: shows a coin's picture, takes a new one from a file or the clipboard, gives it to the
/// clipboard. A new picture is only kept here; it is written when its coin is saved, and dropped when another
/// coin's picture is shown.
class frmImage : public QWidget
{
    Q_OBJECT
public:
    /// What becomes of a ".bmp" file of earlier versions that is shown.
    enum class OldFile { Keep, Convert };

    explicit frmImage(SharedState &shared);
    ~frmImage() override;

    /// Whether there is a coin that a picture can be given to.
    void setHasCoin(bool hasCoin);
    /// Shows the stored picture of that coin, or none. What cannot be read is said in place of the picture; a
    /// conversion that fails, in a message.
    void showCoin(qint64 coinId, OldFile oldFile);
    void clear();

    /// The first step of saving a coin: writes its new picture under a temporary name. Nothing when there is
    /// none, or when it cannot be written; that is told to the user.
    std::unique_ptr<NewPictureFile> writeNewPicture(qint64 coinId);
    /// The second step, when the coin's record has been saved. A failure is told to the user.
    void placeNewPicture(NewPictureFile &file, qint64 coinId);

signals:
    /// The user gives the coin another picture.
    void changing();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void cmdPicLoad_Click();
    void cmdPicPaste_Click();
    void cmdPicCopy_Click();
    void load(const QString &path);
    void markChanged();
    void convert(const Picture &picture, const QString &path);
    void sayFailed(const QString &path);

    SharedState &m_shared;
    std::unique_ptr<Ui::frmImage> m_ui;
    bool m_hasCoin = false;
    bool m_hasNewPicture = false;
};

} // namespace obelmark
