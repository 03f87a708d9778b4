// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "editor/LookupList.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include "forms/EnterOnButtons.h"
#include "support/GuiDriver.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <optional>

namespace obelmark {

using namespace Qt::StringLiterals;
using Answer = Desktop::Answer;
using Icon = Desktop::Icon;

/// The program on a collection of its own, its main window open and active, its user scripted.
class EditorFixture
{
public:
    explicit EditorFixture(const QString &sql = {}, const QLocale &locale = QLocale(u"en_US"_s))
        : m_locale(locale)
    {
        if (!sql.isEmpty())
            collection.exec(sql);
    }
    ~EditorFixture()
    {
        if (window)
            window->close();
    }

    void start()
    {
        shared.emplace(desktop, RegionalSettings(m_locale));
        windows.emplace(*shared);
        window = std::make_unique<frmMain>(*shared, *windows);
        window->Form_Load();
        window->show();
        gui::activate(*window);
    }
    void close()
    {
        window->close();
        window.reset();
        windows.reset();
        shared.reset();
    }

    template<class Widget>
    Widget &the(QStringView name) const
    {
        return gui::find<Widget>(*window, name.toString());
    }
    QLineEdit &edit(QStringView name) const { return the<QLineEdit>(name); }
    QCheckBox &box(QStringView name) const { return the<QCheckBox>(name); }
    LookupList &list(QStringView name) const { return the<LookupList>(name); }
    DateField &date(QStringView name) const { return the<DateField>(name); }
    QPushButton &button(QStringView name) const { return the<QPushButton>(name); }

    /// Brings the field's page to the front and puts the cursor into it as a user would.
    void enter(QStringView name) const
    {
        auto &field = the<QWidget>(name);
        for (QWidget *page = &field; page; page = page->parentWidget()) {
            auto &tabs = the<QTabWidget>(u"Tab1");
            if (tabs.indexOf(page) >= 0)
                tabs.setCurrentWidget(page);
        }
        QVERIFY(gui::focusByMouse(field));
        QTest::qWait(1);
    }
    void typeInto(QStringView name, const QString &text) const
    {
        enter(name);
        gui::press(Qt::Key_A, Qt::ControlModifier);
        gui::press(Qt::Key_Delete);
        gui::type(text);
    }
    void press(QStringView buttonName) const
    {
        QVERIFY(gui::click(button(buttonName)));
        QTest::qWait(1);
    }
    QString shownCoin() const { return edit(u"txtDescr").text(); }
    bool isBrowsing() const
    {
        return button(u"cmdNext").isVisible() && button(u"cmdAddNew").isVisible() &&
               !button(u"cmdUpdate").isVisible() && the<QAction>(u"mnuSort_1").isEnabled();
    }
    bool isEditing() const
    {
        return !button(u"cmdNext").isVisible() && !button(u"cmdAddNew").isVisible() &&
               button(u"cmdUpdate").isVisible() && button(u"cmdCancel").isVisible() &&
               !the<QAction>(u"mnuExit").isEnabled();
    }
    bool isAdding() const
    {
        return !button(u"cmdNext").isVisible() && button(u"cmdAddNew").text() == u"&Add Another" &&
               button(u"cmdAddNew").isVisible() && button(u"cmdUpdate").isVisible();
    }

    TestCollection collection;
    ScriptedDesktop desktop;
    std::optional<SharedState> shared;
    std::optional<ProgramWindows> windows;
    std::unique_ptr<frmMain> window;

private:
    QLocale m_locale;
    EnterOnButtons m_enterOnButtons;
};

} // namespace obelmark
