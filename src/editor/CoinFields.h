// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "coins/Coin.h"
#include "editor/FieldControls.h"
#include <memory>
#include <vector>

namespace obelmark {

struct SharedState;
namespace Ui {
class frmMain;
}

/// The entry fields of the main window as a coin: one table joins its columns with the controls, and showing,
/// clearing, enabling and reading walk it in the same order.
class CoinFields
{
public:
    CoinFields(const Ui::frmMain &window, const SharedState &shared);
    ~CoinFields();

    void show(const Coin &coin);
    void clear();
    /// The three totals stay as they are: they never take input.
    void setEnabled(bool enabled);

    /// The coin as it would be saved now. \throws Overflow when what stands in a field cannot be stored
    Coin coin() const;
    /// The same for the record rules, before which nothing is refused: what cannot be stored is there, but
    /// not what it is.
    Coin coinToCheck() const;

    MoneyControl &money(Coin::Maybe<Money> Coin::*field);
    QWidget *widget(QStringView column) const;
    void forEach(const std::function<void(const FieldControl &field)> &act) const;
    /// Calls \a changed at every change of a field, but not of the totals, as long as \a context lives.
    void onChange(QObject *context, const std::function<void()> &changed) const;

private:
    struct Field
    {
        const CoinColumn *column;
        bool isEntry;
        std::unique_ptr<FieldControl> control;
    };

    std::vector<Field> m_fields;
    Coin m_shown;
};

} // namespace obelmark
