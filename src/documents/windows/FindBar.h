// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportDocument.h"
#include <QWidget>
#include <memory>

namespace obelmark {

class PageView;
namespace Ui {
class FindBar;
}

/// Finds text in the rows of a report and shows the places in the view.
class FindBar : public QWidget
{
    Q_OBJECT
public:
    explicit FindBar(QWidget *parent = nullptr);
    ~FindBar() override;

    /// Both must outlive the bar.
    void setUp(const ReportDocument &document, PageView &view);

    /// Shows the bar, ready for a text.
    void open();
    /// From the last place found or, when the user has turned to another page, from there; from the other
    /// end of the report when there is no further place.
    void find(SearchDirection direction);
    /// To be called when pages of the document have changed.
    void documentChanged();

signals:
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void textChanged();
    void closeBar();
    ReportMatch searchStart() const;

    std::unique_ptr<Ui::FindBar> m_ui;
    const ReportDocument *m_document = nullptr;
    PageView *m_view = nullptr;
    std::optional<ReportMatch> m_match;
};

} // namespace obelmark
