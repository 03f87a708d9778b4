// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QPushButton;

namespace obelmark {

class Dynaset;
class EditButtons;
class FieldControl;
enum class EditState;
enum class Move;
struct LookupMode;
struct LookupTable;
struct SharedState;
namespace Ui {
class frmCodesMaint;
}

/// The maintenance of one of the seven lookup tables: shows one entry at a time, adds, changes, finds and
/// deletes entries. Deletes itself when it is closed.
///
/// Any number of these windows may be open, several on the same table too: what another one has changed is
/// shown when the window comes to the front, and an entry that another one has deleted is left for its
/// neighbour as soon as something is to be done with it.
class frmCodesMaint : public QWidget
{
    Q_OBJECT
public:
    /// Works on the table that CodesMode says at this moment.
    explicit frmCodesMaint(SharedState &shared, QWidget *parent = nullptr);
    ~frmCodesMaint() override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Field
    {
        QString column;
        std::unique_ptr<FieldControl> control;
        Value shown;
    };

    void connectButtons();
    void Form_Load();
    void Form_Activate();
    void ShowRecord();
    qint64 SaveRecord();
    void ClearFields();
    void DisableFields();
    void EnableFields();
    bool ValidateEntry();
    void ShowEditButtons();
    void ShowBrowseButtons();
    void MarkChanged();
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdAddNew_Click();
    void cmdCancel_Click();
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void cmdFind_Click();
    void cmdOk_Click();

    /// Runs an event's procedure; what it does not handle itself goes to the shared error handler.
    void run(const std::function<void()> &procedure);
    void openEntries();
    void beginEntry();
    /// What is left of saving once the entry is in the file.
    void finishSaving(qint64 key);
    /// What an action on the entry on screen is called.
    QString stepName(const QString &action) const;
    Dynaset &entries();
    void makeDefault(QPushButton *button);
    void browseTo(Move direction);
    void showCurrentRow();
    void showNeighbour();
    void showEmptyTable();
    void returnToBrowsing();
    /// Outside Adding: whether there is an entry on screen, not the empty fields of an empty table.
    bool isShowingEntry() const;
    qint64 currentKey();
    void findKey(qint64 key);
    /// Whether the current row can still be read.
    bool isOnEntry();
    bool isInUse(qint64 key);
    void leaveDeletedEntry();
    void showChangesOfOthers();
    void resumeAfterRepair();
    /// Fills fields from code, whose change signals are not to be taken for the user's.
    void fillFields(const std::function<void(Field &)> &fill);
    void setFieldsEnabled(bool enabled);

    SharedState &m_shared;
    const LookupMode &Mode;
    const LookupTable &m_table;
    std::unique_ptr<Ui::frmCodesMaint> m_ui;
    std::unique_ptr<EditButtons> m_buttons;
    std::vector<Field> m_fields;
    QPushButton *m_defaultButton = nullptr;
    std::unique_ptr<Dynaset> m_entries;
    int m_seenRepairs = 0;
    int m_seenChanges = 0;
    qint64 m_shownKey = 0;
    qint64 m_savedKey = 0;      ///< in the file already, though its saving has not come to its end
    bool m_addsAnother = false; ///< the saving began with Add Another
    EditState m_state{};
};

} // namespace obelmark
