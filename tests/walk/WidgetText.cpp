// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/WidgetText.h"

#include "dates/windows/DateField.h"
#include "editor/LookupList.h"
#include "support/GuiDriver.h"

namespace obelmark::walk {

using namespace Qt::StringLiterals;

QString textOf(const QWidget &widget)
{
    if (const auto *notes = qobject_cast<const QPlainTextEdit *>(&widget))
        return notes->toPlainText();
    if (const auto *box = qobject_cast<const QCheckBox *>(&widget))
        return box->isChecked() ? u"1"_s : u"0"_s;
    if (const auto *list = qobject_cast<const LookupList *>(&widget))
        return list->key() ? QString::number(*list->key()) : QString();
    if (const auto *date = qobject_cast<const DateField *>(&widget))
        return date->text();
    return qobject_cast<const QLineEdit *>(&widget)->text();
}

void replaceText(const QString &text)
{
    gui::press(Qt::Key_A, Qt::ControlModifier);
    gui::press(Qt::Key_Delete);
    if (text.isEmpty())
        return;
    QInputMethodEvent typed;
    typed.setCommitString(text);
    QApplication::sendEvent(QApplication::focusWidget(), &typed);
}

QString visibleButtons(const QWidget &window)
{
    QStringList captions;
    const auto all = window.findChildren<QPushButton *>();
    for (const QPushButton *button : all) {
        if (!button->isHidden() && button->objectName() != u"cmdSoldSome" &&
            button->objectName() != u"cmdPicture")
            captions << button->text().remove(u'&');
    }
    captions.sort();
    return captions.join(u' ');
}

QString buttonsIn(State state, bool hasOk)
{
    return state == State::Editing  ? u"Cancel Update"_s
           : state == State::Adding ? u"Add Another Cancel Update"_s
           : hasOk                  ? u"Add New Delete Find First Last Next Ok Previous"_s
                                    : u"Add New Delete Find First Last Next Previous"_s;
}

QString differ(const QString &what, const QString &is, const QString &shouldBe)
{
    return is == shouldBe ? QString() : u"%1 is \"%2\", should be \"%3\"\n"_s.arg(what, is, shouldBe);
}

} // namespace obelmark::walk
