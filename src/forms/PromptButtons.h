#pragma once

#include <QObject>

class QWidget;

namespace obelmark {

/// Makes the buttons of a window act at once on their access keys. By themselves they show the button pressed for a
/// tenth of a second first, and what is typed meanwhile would go to the coin or the state before.
class PromptButtons : public QObject
{
    Q_OBJECT
public:
    /// For all push buttons that \a window has now.
    explicit PromptButtons(QWidget &window);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace obelmark
