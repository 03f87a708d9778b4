#pragma once

#include "editor/FieldControls.h"
#include <memory>
#include <vector>

namespace obelmark {

struct SharedState;

/// The entry fields of the main window and the columns of Coin that they hold: one table that showing,
/// clearing, enabling and writing walk in the same order.
class CoinFields
{
public:
    /// The controls are found in \a window by their names.
    CoinFields(QWidget &window, SharedState &shared);
    ~CoinFields();

    /// Shows the current row of CoinRecordset.
    void showRow();
    void clear();
    /// The three totals stay as they are: they never take input.
    void setEnabled(bool enabled);
    /// Writes every field, and the catalogue sort key, into the row begun on CoinRecordset. Errors go to the
    /// shared error handler, the next field follows.
    void writeRow();

    MoneyControl &money(const QString &control);
    void forEach(const std::function<void(const FieldControl &field)> &act) const;
    /// Calls \a changed at every change of a field, but not of the totals, as long as \a context lives.
    void onChange(QObject *context, const std::function<void()> &changed) const;

private:
    struct Field
    {
        QString column;
        bool isEntry;
        std::unique_ptr<FieldControl> control;
    };

    SharedState &m_shared;
    std::vector<Field> m_fields;
};

} // namespace obelmark
