// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportDocument.h"
#include <QWidget>
#include <memory>

class QActionGroup;

namespace obelmark {

struct SharedState;
namespace Ui {
class PreviewView;
}

/// A report on screen with its navigation bar: turning pages, zoom, finding text, printing, saving as PDF,
/// the way the paper lies.
class PreviewView : public QWidget
{
    Q_OBJECT
public:
    explicit PreviewView(QWidget *parent = nullptr);
    ~PreviewView() override;

    /// Must be called before the view is shown; the shared state must outlive it.
    void setShared(SharedState &shared) { m_shared = &shared; }

    ReportDocument &document() { return m_document; }
    /// The size at which a page is as large as on paper, or as much of it as fits into \a most.
    QSize pageSizeOnScreen(const QSize &most) const;

protected:
    void focusInEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpNavigation();
    void setUpZoom();
    void setUpKeys();
    void documentChanged(ReportDocument::Change change);
    void showState();
    void turnPaper(bool landscape);
    void print();
    void save();

    ReportDocument m_document;
    std::unique_ptr<Ui::PreviewView> m_ui;
    SharedState *m_shared = nullptr;
    QActionGroup *m_zooms = nullptr;
};

} // namespace obelmark
