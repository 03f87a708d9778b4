// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/EditorFixture.h"
#include "lookups/frmCodesMaint.h"

namespace obelmark {

// The captions of the buttons on screen in each state.
const QString browsingButtons = u"&First &Previous &Next &Last &Add New &Delete &Find &Ok"_s;
const QString editingButtons = u"&Cancel &Update"_s;
const QString addingButtons = u"&Add Another &Cancel &Update"_s;

/// A maintenance window, opened from the main window's menu as a user does.
class MaintWindow
{
public:
    MaintWindow(const EditorFixture &program, int mode)
    {
        const auto before = QApplication::topLevelWidgets();
        QVERIFY(gui::trigger(*program.window, u"mnuMaint_%1"_s.arg(mode)));
        const auto after = QApplication::topLevelWidgets();
        for (QWidget *candidate : after) {
            if (!before.contains(candidate) && qobject_cast<frmCodesMaint *>(candidate))
                window = candidate;
        }
        QVERIFY(window);
        gui::activate(*window);
    }
    ~MaintWindow() { delete window; }
    Q_DISABLE_COPY_MOVE(MaintWindow)

    template<class Widget>
    Widget &the(QStringView name) const
    {
        return gui::find<Widget>(*window, name.toString());
    }
    QLineEdit &edit(QStringView name) const { return the<QLineEdit>(name); }
    QPushButton &button(QStringView name) const { return the<QPushButton>(name); }

    void press(QStringView buttonName) const
    {
        QVERIFY(gui::click(button(buttonName)));
        QTest::qWait(1);
    }
    void typeInto(QStringView name, const QString &text) const
    {
        QVERIFY(gui::focusByMouse(the<QWidget>(name)));
        gui::press(Qt::Key_A, Qt::ControlModifier);
        gui::press(Qt::Key_Delete);
        gui::type(text);
    }
    QString shown() const { return edit(u"txtDesc").text(); }
    bool isShowingNothing() const { return shown().isEmpty() && !edit(u"txtDesc").isEnabled(); }
    QString buttons() const
    {
        QStringList captions;
        const auto all = window->findChildren<QPushButton *>();
        for (const QPushButton *candidate : all) {
            if (candidate->isVisible())
                captions << candidate->text();
        }
        return captions.join(u' ');
    }
    QString defaultButton() const
    {
        QStringList names;
        const auto all = window->findChildren<QPushButton *>();
        for (const QPushButton *candidate : all) {
            if (candidate->isDefault())
                names << candidate->objectName();
        }
        return names.join(u' ');
    }

    QPointer<QWidget> window;
};

} // namespace obelmark
