// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/Catalogue.h"
#include <QDialog>
#include <functional>
#include <memory>

class QListWidget;
class QRadioButton;

namespace obelmark {

struct FindValue;
struct SharedState;
namespace Ui {
class frmFind;
}

/// Finds a coin by one field: moves CoinRecordset to the match in the chosen direction, or leaves its NoMatch
/// raised, and clears FindCancelled once a search is started. Finding and closing only hide it, with all that
/// the user has chosen.
class frmFind : public QDialog
{
    Q_OBJECT
public:
    /// Offers the fields of UseWith. \throws CatalogueError
    explicit frmFind(SharedState &shared);
    ~frmFind() override;

    /// Returns when it has been hidden again. The owner may go before this window does.
    void showModal(QWidget &owner);

private:
    void Form_Load();
    void ShowOperators();
    void lstBool_Click();
    void txtToFind_Change();
    void cmdFind_Click();
    void cmdCancel_Click();

    /// Runs an event's procedure; what it does not handle itself goes to the shared error handler.
    void run(const std::function<void()> &procedure);
    /// Carries out a statement on what a catalogue field names. Answers false, and tells the user, when the
    /// database has nothing of that name.
    bool tryField(const CatalogueField &field, const std::function<void()> &statement);
    void fillEntries(const CatalogueField &field);
    const CatalogueField *selectedField() const;
    QListWidget *operatorList(const CatalogueField &field) const;
    FindValue chosenValue(const CatalogueField &field) const;
    void search(const QString &criteria);
    void searchFromTop();

    SharedState &m_shared;
    const QList<CatalogueField> m_fields;
    std::unique_ptr<Ui::frmFind> m_ui;
};

} // namespace obelmark
