// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/DropDownStyle.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>

namespace obelmark {

namespace {

constexpr int visibleEntries = 20;

/// Watches one drop-down list while it is closed.
class BlankInSearch : public QObject
{
    Q_OBJECT
public:
    explicit BlankInSearch(QComboBox &list) : QObject(&list) { list.installEventFilter(this); }

    bool eventFilter(QObject *list, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            m_sinceLetter.invalidate();
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto &key = static_cast<const QKeyEvent &>(*event);
        const bool isSearching =
            m_sinceLetter.isValid() && m_sinceLetter.elapsed() < QApplication::keyboardInputInterval();
        const bool isBlank = key.key() == Qt::Key_Space && key.modifiers() == Qt::NoModifier;
        if (isBlank && !isSearching)
            return false;
        if (!key.text().isEmpty() && key.text().front().isPrint())
            m_sinceLetter.start();
        if (!isBlank)
            return false;
        // The list takes any key with a text for a letter, but for the space bar.
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, key.text());
        QApplication::sendEvent(list, &letter);
        return true;
    }

private:
    QElapsedTimer m_sinceLetter;
};

} // namespace

int DropDownStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                             QStyleHintReturn *answer) const
{
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, answer);
}

void DropDownStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    auto *list = qobject_cast<QComboBox *>(widget);
    if (!list || list->isEditable() || list->findChild<BlankInSearch *>({}, Qt::FindDirectChildrenOnly))
        return;
    list->setMaxVisibleItems(visibleEntries);
    new BlankInSearch(*list);
}

} // namespace obelmark

#include "DropDownStyle.moc"
