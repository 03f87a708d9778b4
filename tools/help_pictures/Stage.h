// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/SharedState.h"
#include "desktop/qt/RealDesktop.h"
#include "editor/Program.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include "support/GuiDriver.h"
#include "support/TestCollection.h"
#include <QLineEdit>

namespace obelmark {

/// The width of a window whose picture fits into the help window as it opens.
inline constexpr int widest = 540;

/// The window system of the pictures: the real one, with the drives of somebody else's computer.
class StageDesktop : public RealDesktop
{
public:
    QList<Drive> drives() override;
    /// An input box that is left after its picture has been taken has the program say what it thinks of that.
    void showMessage(const QString &, const QString &, Icon) override {}
    void beep() override {}
    [[noreturn]] void endProgram() override;
};

/// The program on a copy of the sample collection, its main window open, and hands to use it.
class Stage
{
public:
    Stage();
    ~Stage();
    Q_DISABLE_COPY_MOVE(Stage)

    frmMain &main() const { return *m_program.mainWindow(); }
    /// The open window of that name.
    QWidget &window(const QString &name) const;
    QWidget &widget(const QWidget &window, const QString &name) const;

    void press(const QString &button) const { press(main(), button); }
    void press(const QWidget &window, const QString &button) const;
    void type(const QWidget &window, const QString &field, const QString &text) const;
    /// Chooses the entry of a list or of a drop-down list.
    void choose(const QWidget &window, const QString &list, const QString &entry) const;
    /// Brings a page of the tabs to the front.
    void turnTo(const QWidget &window, int page) const;
    void trigger(const QString &item) const;

    /// Shows the coin whose description contains that text, with its place in the collection.
    void showCoin(const QString &text) const;

private:
    TestCollection m_collection;
    StageDesktop m_desktop;
    SharedState m_shared;
    ProgramWindows m_windows;
    Program m_program;
};

} // namespace obelmark
