// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/qt/HelpBook.h"

#include <QWidget>
#include <memory>

class QListWidgetItem;

namespace obelmark {

namespace Ui {
class frmHelp;
}

/// The help window. Every show function also brings it to the front; asked for while a dialog is open, the
/// window belongs to that dialog and can be used beside it.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget *parent = nullptr);
    ~HelpWindow() override;

    /// The help file to show; a file that cannot be opened is named in place of every page, and tried again
    /// at the next call.
    void setHelpFile(const QString &path) { m_book.setFile(path); }

    void showTopic(int topic);
    void showContents();
    void showSearch();
    void showHelpOnHelp();

    void discardTemporaryFiles() { m_book.discardTemporaryFiles(); }

private:
    void present(const QUrl &address, QWidget *focus);
    void setUpContents();
    void setUpIndex();
    void setUpSearch();
    void search();
    void listPages(const QList<HelpBook::Page> &pages);
    void openItem(const QListWidgetItem *item);
    void selectInContents(const QUrl &page);

    HelpBook m_book;
    std::unique_ptr<Ui::frmHelp> m_ui;
};

} // namespace obelmark
