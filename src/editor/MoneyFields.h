// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/EntryWatch.h"
#include <QObject>
#include <vector>

class QLineEdit;

namespace obelmark {

class CoinFields;
class MoneyControl;
struct SharedState;
namespace Ui {
class frmMain;
}

/// The money fields, the quantity and the three totals: what the user typed is checked when a field is left,
/// shown as money, and each total kept at its unit price times the quantity.
class MoneyFields : public QObject
{
    Q_OBJECT
public:
    MoneyFields(QWidget &parent, const Ui::frmMain &window, CoinFields &fields, EntryWatch &watch,
                const SharedState &shared);

    /// Before a coin is saved: makes the quantity the whole number that is stored, and the totals those of
    /// it.
    void roundQuantity();

private:
    struct Unit
    {
        MoneyControl *price;
        MoneyControl *total;
    };

    std::optional<EntryWatch::Refusal> leaveUnit(const Unit &unit);
    std::optional<EntryWatch::Refusal> leaveFace();
    std::optional<EntryWatch::Refusal> leaveQuantity();
    void recomputeTotals();
    void showTotal(const Unit &unit);
    QString foresee(const Unit &unit) const;
    bool isNumber(const QString &text) const;

    const SharedState &m_shared;
    QLineEdit *m_quantity;
    MoneyControl *m_face;
    std::vector<Unit> m_units;
};

} // namespace obelmark
