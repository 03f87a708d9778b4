// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "WindowCheck.h"

#include "support/GuiDriver.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Of a screen of 1920 by 1080 pixels at 200 %, what the desktop leaves.
constexpr QSize smallScreen(960, 500);
/// More than any window has stops.
constexpr int mostTabs = 200;
/// In a field that shows fewer digits than these one does not see what is typed.
constexpr int fewestDigits = 4;

/// Access keys that several captions of a window share as they are.
const QHash<QString, QString> sharedMnemonics = {{u"frmCodesMaint"_s, u"Alt+F"_s}};

QString nameOf(const QWidget &widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

/// What of the style's making belongs to a control: the field of a drop-down list, the bars of a list.
bool isPartOfAnother(const QWidget &widget)
{
    const QWidget *parent = widget.parentWidget();
    return qobject_cast<const QScrollBar *>(&widget) || qobject_cast<const QComboBox *>(parent) ||
           qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QLineEdit *>(parent) ||
           qobject_cast<const QTabBar *>(parent) || qobject_cast<const QAbstractItemView *>(parent);
}

bool isControl(const QWidget &widget)
{
    if (isPartOfAnother(widget) || widget.isWindow() || widget.focusProxy())
        return false;
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton *>(&widget) ||
           qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QAbstractItemView *>(&widget);
}

/// A text that takes no input need not be gone to.
bool isForReading(const QWidget &widget)
{
    const auto *edit = qobject_cast<const QLineEdit *>(&widget);
    const auto *label = qobject_cast<const QLabel *>(&widget);
    return (edit && edit->isReadOnly()) ||
           (label && !label->textInteractionFlags().testFlag(Qt::LinksAccessibleByKeyboard));
}

QString captionOf(const QWidget &widget)
{
    for (const char *property : {"text", "title"}) {
        if (qobject_cast<const QLineEdit *>(&widget) == nullptr && widget.property(property).isValid())
            return widget.property(property).toString();
    }
    return {};
}

/// A button that takes no focus tells in the end of its tool tip which key does the same.
bool tellsKey(const QWidget &widget)
{
    static const QRegularExpression inParentheses(u"\\((.+)\\)$"_s);
    const QString key = inParentheses.match(widget.toolTip()).captured(1);
    return !key.isEmpty() && QKeySequence(key)[0].key() != Qt::Key_unknown;
}

QSet<const QWidget *> reachedByTab(QWidget &window)
{
    QSet<const QWidget *> reached;
    const QWidget *start = window.focusWidget();
    int presses = 0;
    do {
        reached.insert(QApplication::focusWidget());
        gui::press(Qt::Key_Tab);
        // A page of the help stops at each of its links.
    } while (QApplication::focusWidget() != start && ++presses < mostTabs);
    return reached;
}

/// The arrow keys go from one radio button to the next.
bool isReachedInGroup(const QWidget &widget, const QSet<const QWidget *> &reached)
{
    const auto others = widget.parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly);
    return qobject_cast<const QRadioButton *>(&widget) &&
           std::ranges::any_of(others, [&](const QWidget *other) { return reached.contains(other); });
}

/// Of a drop-down list the entry chosen is the name, and its label is heard before.
bool isNamed(QWidget &widget)
{
    const QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&widget);
    if (qobject_cast<QComboBox *>(&widget))
        return !heard->relations(QAccessible::Label).isEmpty();
    return !heard->text(QAccessible::Name).trimmed().isEmpty();
}

bool isCutOff(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        if (label->text().isEmpty())
            return false;
        if (label->wordWrap())
            return label->heightForWidth(label->width()) > label->height();
    } else if (const auto *edit = qobject_cast<const QLineEdit *>(&widget)) {
        return edit->width() < fewestDigits * edit->fontMetrics().horizontalAdvance(u'0');
    } else if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
        return group->fontMetrics().horizontalAdvance(group->title()) > group->width();
    } else if (!qobject_cast<const QAbstractButton *>(&widget) && !qobject_cast<const QTabBar *>(&widget) &&
               !qobject_cast<const QMenuBar *>(&widget)) {
        return false;
    }
    const QSize wanted = widget.sizeHint();
    return wanted.width() > widget.width() || wanted.height() > widget.height();
}

QStringList sharedKeys(const QWidget &window, const QList<QWidget *> &widgets)
{
    QHash<QString, QStringList> users;
    const auto add = [&](const QString &caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty())
            users[key.toString()] += caption;
    };
    for (const QWidget *widget : widgets) {
        if (const auto *tabs = qobject_cast<const QTabBar *>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                add(tabs->isTabVisible(tab) ? tabs->tabText(tab) : QString());
        } else if (const auto *bar = qobject_cast<const QMenuBar *>(widget)) {
            for (const QAction *menu : bar->actions())
                add(menu->text());
        } else {
            add(captionOf(*widget));
        }
    }
    QStringList complaints;
    for (auto key = users.cbegin(); key != users.cend(); ++key) {
        if (key->size() > 1 && sharedMnemonics.value(window.objectName()) != key.key())
            complaints += u"%1 stands for several: %2"_s.arg(key.key(), key->join(u", "_s));
    }
    return complaints;
}

QStringList complaintsAboutPage(QWidget &window)
{
    QTest::qWait(1); // for the layouts
    QList<QWidget *> shown;
    const auto all = window.findChildren<QWidget *>();
    for (QWidget *widget : all) {
        if (widget->isVisible() && !isPartOfAnother(*widget) && widget->window() == &window)
            shown += widget;
    }
    QStringList complaints = sharedKeys(window, shown);
    QList<QWidget *> controls;
    for (QWidget *widget : shown) {
        if (isCutOff(*widget))
            complaints += u"%1 is cut off: %2x%3 of %4x%5"_s.arg(nameOf(*widget))
                              .arg(widget->width())
                              .arg(widget->height())
                              .arg(widget->sizeHint().width())
                              .arg(widget->sizeHint().height());
        if (!isControl(*widget))
            continue;
        if (!isNamed(*widget))
            complaints += nameOf(*widget) + u" has no accessible name"_s;
        if (QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::Client)
            complaints += nameOf(*widget) + u" is no control for a screen reader"_s;
        if (widget->isEnabled() && !isForReading(*widget) &&
            QKeySequence::mnemonic(captionOf(*widget)).isEmpty() && !tellsKey(*widget))
            controls += widget;
    }
    const QSet<const QWidget *> reached = reachedByTab(window);
    for (const QWidget *widget : controls) {
        if (!reached.contains(widget) && !isReachedInGroup(*widget, reached))
            complaints += nameOf(*widget) + u" cannot be reached from the keyboard"_s;
    }
    return complaints;
}

} // namespace

QStringList complaintsAbout(QWidget &window, int fontSize)
{
    QStringList complaints;
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    const QSize screen = smallScreen * fontSize;
    if (least.width() > screen.width() || least.height() > screen.height())
        complaints += u"%1 is larger than a small screen: %2x%3"_s.arg(nameOf(window))
                          .arg(least.width())
                          .arg(least.height());
    auto *tabs = window.findChild<QTabWidget *>();
    if (!tabs || !tabs->isVisible())
        return complaints + complaintsAboutPage(window);
    for (int page = 0; page < tabs->count(); ++page) {
        if (!tabs->isTabVisible(page))
            continue;
        tabs->setCurrentIndex(page);
        complaints += complaintsAboutPage(window);
    }
    tabs->setCurrentIndex(0);
    return complaints;
}

} // namespace obelmark
