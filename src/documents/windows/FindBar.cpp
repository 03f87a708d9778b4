// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/FindBar.h"

#include "documents/windows/PageView.h"
#include "ui_FindBar.h"
#include <QKeyEvent>
#include <limits>

namespace obelmark {

using namespace Qt::StringLiterals;

FindBar::FindBar(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::FindBar>())
{
    m_ui->setupUi(this);
    connect(m_ui->txtFind, &QLineEdit::textChanged, this, &FindBar::textChanged);
    connect(m_ui->cmdFindNext, &QToolButton::clicked, this, [this] { find(SearchDirection::Forwards); });
    connect(m_ui->cmdFindPrevious, &QToolButton::clicked, this, [this] { find(SearchDirection::Backwards); });
    connect(m_ui->cmdFindClose, &QToolButton::clicked, this, &FindBar::closeBar);
}

FindBar::~FindBar() = default;

void FindBar::setUp(const ReportDocument &document, PageView &view)
{
    m_document = &document;
    m_view = &view;
}

void FindBar::open()
{
    show();
    m_ui->txtFind->setFocus();
    m_ui->txtFind->selectAll();
    m_view->highlight(m_ui->txtFind->text(), m_match);
}

void FindBar::closeBar()
{
    hide();
    m_view->highlight({}, {});
    m_view->setFocus();
    emit closed();
}

void FindBar::documentChanged()
{
    textChanged();
}

void FindBar::textChanged()
{
    m_match.reset();
    m_ui->lblFound->clear();
    m_view->highlight(isHidden() ? QString() : m_ui->txtFind->text(), {});
}

ReportMatch FindBar::searchStart() const
{
    if (m_match && m_document->pageOf(*m_match) == m_view->currentPage())
        return *m_match;
    return {m_document->firstRow(m_view->currentPage()), -1, -1};
}

void FindBar::find(SearchDirection direction)
{
    const QString text = m_ui->txtFind->text();
    if (isHidden() || text.isEmpty() || m_document->rowCount() == 0) {
        open();
        return;
    }
    const bool forwards = direction == SearchDirection::Forwards;
    setCursor(Qt::WaitCursor);
    m_ui->lblFound->clear();
    m_match = m_document->find(text, searchStart(), direction);
    if (!m_match) {
        constexpr qsizetype beyond = std::numeric_limits<qsizetype>::max();
        const ReportMatch otherEnd =
            forwards ? ReportMatch{0, -1, -1} : ReportMatch{m_document->rowCount() - 1, beyond, beyond};
        m_match = m_document->find(text, otherEnd, direction);
        m_ui->lblFound->setText(!m_match   ? u"Not found"_s
                                : forwards ? u"Continued from the first page"_s
                                           : u"Continued from the last page"_s);
    }
    unsetCursor();
    m_view->highlight(text, m_match);
    if (!m_match)
        return;
    const qsizetype page = m_document->pageOf(*m_match);
    for (const ReportDocument::MatchRect &found : m_document->matchRects(page, text)) {
        if (found.match == *m_match) {
            m_view->showPlace(page, found.rect);
            break;
        }
    }
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        closeBar();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        find(event->modifiers() & Qt::ShiftModifier ? SearchDirection::Backwards : SearchDirection::Forwards);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace obelmark
