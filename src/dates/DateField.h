#pragma once

#include <QComboBox>

namespace obelmark {

/// A field for a date: typed as text, or chosen by opening its drop-down, which asks for the calendar instead
/// of showing a list.
class DateField : public QComboBox
{
    Q_OBJECT
public:
    explicit DateField(QWidget *parent = nullptr);

    QString text() const { return currentText(); }
    void setText(const QString &text) { setEditText(text); }

    void showPopup() override;

signals:
    /// The user opened the drop-down.
    void dropDown();

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace obelmark
