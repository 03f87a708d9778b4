// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/PreviewView.h"

#include "documents/PageSetup.h"
#include "documents/windows/PageView.h"
#include "documents/windows/PrintReport.h"
#include "documents/windows/SavePdf.h"
#include "ui_PreviewView.h"
#include <QActionGroup>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>
#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

struct ZoomChoice
{
    Zoom zoom;
    const char16_t *text;
    const char16_t *name;
};
constexpr ZoomChoice zoomChoices[] = {
    {Zoom::WholePage, u"Whole &Page", u"mnuZoom_1"},
    {Zoom::PageWidth, u"Page &Width", u"mnuZoom_2"},
    {Zoom::TwoPages, u"&Two Pages", u"mnuZoom_3"},
    {Zoom::Thumbnail, u"Thumb&nail", u"mnuZoom_4"},
};
constexpr double zoomStep = 1.25;
constexpr double arrowEnlargement = 1.5;

} // namespace

PreviewView::PreviewView(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::PreviewView>())
{
    m_ui->setupUi(this);
    m_ui->fraFind->hide();
    m_ui->fraFind->setUp(m_document, *m_ui->pages);
    setUpNavigation();
    setUpZoom();
    setUpKeys();
    m_ui->pages->setDocument(m_document);
    m_document.onChange([this](ReportDocument::Change change) { documentChanged(change); });
    documentChanged(ReportDocument::Change::NewReport);
}

PreviewView::~PreviewView()
{
    m_document.onChange({});
}

void PreviewView::setUpNavigation()
{
    PageView *pages = m_ui->pages;
    // Signs so small need larger letters.
    for (QToolButton *button :
         {m_ui->cmdFirstPage, m_ui->cmdPreviousPage, m_ui->cmdNextPage, m_ui->cmdLastPage}) {
        QFont font = button->font();
        font.setPointSizeF(QFontInfo(font).pointSizeF() * arrowEnlargement);
        button->setFont(font);
    }
    const auto onClick = [this](const QToolButton *button, const auto &action) {
        connect(button, &QToolButton::clicked, this, action);
    };
    onClick(m_ui->cmdFirstPage, [pages] { pages->goToPage(0); });
    onClick(m_ui->cmdPreviousPage, [pages] { pages->goToPrevious(); });
    onClick(m_ui->cmdNextPage, [pages] { pages->goToNext(); });
    onClick(m_ui->cmdLastPage, [pages] { pages->goToPage(pages->pageCount() - 1); });
    onClick(m_ui->cmdFind, [this] { m_ui->fraFind->open(); });
    onClick(m_ui->cmdPrint, [this] { print(); });
    onClick(m_ui->cmdSavePdf, [this] { save(); });
    onClick(m_ui->cmdLandscape, [this] { turnPaper(m_ui->cmdLandscape->isChecked()); });
    m_ui->txtPage->installEventFilter(this);
    connect(m_ui->txtPage, &QSpinBox::valueChanged, this, [pages](int page) { pages->goToPage(page - 1); });
    connect(pages, &PageView::changed, this, &PreviewView::showState);
}

/// The focus of the view itself is that of its pages. They are no focus proxy: the Tab key would never get
/// past that.
void PreviewView::focusInEvent(QFocusEvent *event)
{
    m_ui->pages->setFocus(event->reason());
}

/// In the page number, keys do what they do on the pages; a spin box would leap ten pages.
bool PreviewView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_PageUp:
            m_ui->pages->goToPrevious();
            return true;
        case Qt::Key_PageDown:
            m_ui->pages->goToNext();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_ui->txtPage->interpretText();
            m_ui->pages->goToPage(m_ui->txtPage->value() - 1);
            m_ui->txtPage->selectAll();
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void PreviewView::turnPaper(bool landscape)
{
    const ReportPlace place = m_ui->pages->firstVisible();
    m_document.setPage({m_document.page().paper, landscape});
    m_ui->pages->goTo(place);
}

void PreviewView::setUpZoom()
{
    auto *menu = new QMenu(m_ui->cmdZoom);
    m_zooms = new QActionGroup(this);
    // At a scale of the user's own none of them is checked.
    m_zooms->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const ZoomChoice &choice : zoomChoices) {
        QAction *action = menu->addAction(QString::fromUtf16(choice.text));
        action->setObjectName(QString::fromUtf16(choice.name));
        action->setCheckable(true);
        action->setData(int(choice.zoom));
        m_zooms->addAction(action);
    }
    m_ui->cmdZoom->setMenu(menu);
    connect(m_zooms, &QActionGroup::triggered, this, [this](const QAction *action) {
        m_ui->pages->setZoom(Zoom(action->data().toInt()));
        m_ui->pages->setFocus();
    });
}

void PreviewView::setUpKeys()
{
    const auto addKey = [this](const QKeySequence &key, const auto &action) {
        new QShortcut(key, this, action, Qt::WindowShortcut);
    };
    const auto addClick = [&](QKeySequence::StandardKey key, QToolButton *button) {
        addKey(key, [button] { button->click(); });
    };
    addClick(QKeySequence::Find, m_ui->cmdFind);
    addClick(QKeySequence::Print, m_ui->cmdPrint);
    addClick(QKeySequence::Save, m_ui->cmdSavePdf);
    addKey(QKeySequence::FindNext, [this] { m_ui->fraFind->find(SearchDirection::Forwards); });
    addKey(QKeySequence::FindPrevious, [this] { m_ui->fraFind->find(SearchDirection::Backwards); });
    addKey(QKeySequence::ZoomIn, [this] { m_ui->pages->zoomBy(zoomStep); });
    addKey(Qt::CTRL | Qt::Key_Equal, [this] { m_ui->pages->zoomBy(zoomStep); });
    addKey(QKeySequence::ZoomOut, [this] { m_ui->pages->zoomBy(1 / zoomStep); });
    addKey(Qt::CTRL | Qt::Key_0, [this] { m_ui->pages->zoomBy(1 / m_ui->pages->relativeScale()); });
}

void PreviewView::documentChanged(ReportDocument::Change change)
{
    if (change == ReportDocument::Change::NewReport)
        m_ui->pages->rewind();
    m_ui->pages->documentChanged();
    m_ui->fraFind->documentChanged();
    showState();
}

void PreviewView::showState()
{
    const PageView &pages = *m_ui->pages;
    const qsizetype count = pages.pageCount();
    const bool isFirst = pages.currentPage() == 0, isLast = pages.currentPage() + 1 >= count;
    // From a button that is of no use any more the focus would go on to one that does something else.
    if ((isFirst && (m_ui->cmdFirstPage->hasFocus() || m_ui->cmdPreviousPage->hasFocus())) ||
        (isLast && (m_ui->cmdNextPage->hasFocus() || m_ui->cmdLastPage->hasFocus())))
        m_ui->pages->setFocus(Qt::TabFocusReason);
    m_ui->cmdFirstPage->setEnabled(!isFirst);
    m_ui->cmdPreviousPage->setEnabled(!isFirst);
    m_ui->cmdNextPage->setEnabled(!isLast);
    m_ui->cmdLastPage->setEnabled(!isLast);
    {
        const QSignalBlocker quiet(m_ui->txtPage);
        m_ui->txtPage->setRange(1, qMax(1, int(count)));
        m_ui->txtPage->setValue(int(pages.currentPage()) + 1);
    }
    m_ui->lblPageCount->setText(u"of %1"_s.arg(count));
    for (QToolButton *button : {m_ui->cmdFind, m_ui->cmdPrint, m_ui->cmdSavePdf, m_ui->cmdLandscape})
        button->setEnabled(count > 0);
    m_ui->cmdLandscape->setChecked(m_document.page().landscape);
    for (QAction *action : m_zooms->actions())
        action->setChecked(Zoom(action->data().toInt()) == pages.zoom());
    m_ui->cmdZoom->setText(u"&Zoom %1%"_s.arg(std::lround(pages.relativeScale() * 100)));
}

void PreviewView::print()
{
    askAndPrint(m_document, m_ui->pages->currentPage(), *m_shared, window());
}

void PreviewView::save()
{
    savePdf(m_document, *m_shared);
}

QSize PreviewView::pageSizeOnScreen(const QSize &most) const
{
    static constexpr double pixelsPerTwip = 96 / twipsPerInch;
    static constexpr QSize frame(48, 80); // scroll bar, navigation bar and the space around the page
    const QSize page = (m_document.page().size() * pixelsPerTwip).toSize();
    return (page + frame).boundedTo(most);
}

} // namespace obelmark
