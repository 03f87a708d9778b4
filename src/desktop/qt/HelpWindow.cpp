// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/HelpWindow.h"

#include "ui_HelpWindow.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace obelmark {

namespace {

constexpr int firstTopic = 8;
// In letters and lines of the user's font.
constexpr int usualWidth = 150;
constexpr int usualHeight = 43;
constexpr int findersWidth = 48;

} // namespace

HelpWindow::HelpWindow(QWidget *parent) : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::frmHelp>())
{
    m_ui->setupUi(this);
    m_ui->txtTopic->setBook(&m_book);
    setUpContents();
    setUpIndex();
    setUpSearch();

    connect(m_ui->cmdContents, &QPushButton::clicked, this, &HelpWindow::showContents);
    new QShortcut(QKeySequence::Back, m_ui->cmdBack, m_ui->cmdBack, &QPushButton::click);
    new QShortcut(QKeySequence::Forward, m_ui->cmdForward, m_ui->cmdForward, &QPushButton::click);
    new QShortcut(QKeySequence::HelpContents, this, this, &HelpWindow::showHelpOnHelp);
    new QShortcut(Qt::Key_Escape, this, this, &QWidget::close);

    // A screen scaled by two may be smaller than the usual size.
    const int letter = fontMetrics().averageCharWidth();
    const QSize usualSize(usualWidth * letter, usualHeight * fontMetrics().height());
    resize(usualSize.boundedTo(screen()->availableSize() * 9 / 10));
    const int finders = findersWidth * letter;
    m_ui->splitter->setSizes({finders, width() - finders});
    m_ui->splitter->setStretchFactor(0, 0);
    m_ui->splitter->setStretchFactor(1, 1);
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::setUpContents()
{
    QHelpContentWidget *tree = m_book.engine().contentWidget();
    tree->setObjectName(u"treContents"_s);
    tree->setAccessibleName(u"Contents"_s);
    // A long title is scrolled to, not cut off.
    tree->setTextElideMode(Qt::ElideNone);
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_ui->layoutContents->addWidget(tree);
    setTabOrder(m_ui->tabFinders->tabBar(), tree);

    QHelpContentModel *model = m_book.engine().contentModel();
    connect(model, &QHelpContentModel::contentsCreated, this, [this, tree] {
        tree->expandAll();
        selectInContents(m_ui->txtTopic->source());
    });
    connect(tree, &QHelpContentWidget::linkActivated, m_ui->txtTopic, &TopicBrowser::open);
    connect(tree, &QHelpContentWidget::clicked, this, [this, model](const QModelIndex &index) {
        if (const QHelpContentItem *item = model->contentItemAt(index))
            m_ui->txtTopic->open(item->url());
    });
    connect(m_ui->txtTopic, &TopicBrowser::sourceChanged, this, &HelpWindow::selectInContents);
}

void HelpWindow::selectInContents(const QUrl &page)
{
    QHelpContentWidget *tree = m_book.engine().contentWidget();
    const QHelpContentItem *current = m_book.engine().contentModel()->contentItemAt(tree->currentIndex());
    // Several entries may lead to one page; the one just chosen stays chosen.
    if (!current || current->url() != page)
        tree->setCurrentIndex(tree->indexOf(page));
}

void HelpWindow::setUpIndex()
{
    QHelpIndexWidget *index = m_book.engine().indexWidget();
    index->setObjectName(u"lstIndex"_s);
    index->setAccessibleName(u"Catchwords"_s);
    m_ui->layoutIndex->addWidget(index);
    setTabOrder(m_ui->txtIndex, index);

    connect(m_ui->txtIndex, &QLineEdit::textChanged, index,
            [index](const QString &text) { index->filterIndices(text); });
    connect(m_ui->txtIndex, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::clicked, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink &page) { m_ui->txtTopic->open(page.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this, [this](const QList<QHelpLink> &links) {
        QList<HelpBook::Page> pages;
        for (const QHelpLink &link : links)
            pages.append({link.title, QString(), link.url});
        m_ui->tabFinders->setCurrentWidget(m_ui->pageSearch);
        listPages(pages);
        m_ui->lstHits->setFocus();
    });

    // A help file without catchwords needs no page for them.
    QHelpIndexModel *model = m_book.engine().indexModel();
    connect(model, &QHelpIndexModel::indexCreated, this, [this, model] {
        m_ui->tabFinders->setTabVisible(m_ui->tabFinders->indexOf(m_ui->pageIndex), model->rowCount() > 0);
    });
}

void HelpWindow::setUpSearch()
{
    connect(m_ui->txtSearch, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(m_ui->txtSearch, &QLineEdit::returnPressed, m_ui->lstHits, [this] {
        m_ui->lstHits->setFocus();
        m_ui->lstHits->setCurrentRow(0);
    });
    connect(m_ui->lstHits, &QListWidget::currentItemChanged, this, &HelpWindow::openItem);
    connect(m_ui->lstHits, &QListWidget::itemActivated, this, &HelpWindow::openItem);
    connect(m_ui->lstHits, &QListWidget::itemClicked, this, &HelpWindow::openItem);
}

void HelpWindow::search()
{
    const QString words = m_ui->txtSearch->text();
    const QList<HelpBook::Page> pages = m_book.search(words);
    listPages(pages);
    if (words.trimmed().isEmpty())
        m_ui->lblHits->clear();
    else if (pages.isEmpty())
        m_ui->lblHits->setText(u"No page contains these words."_s);
    else
        m_ui->lblHits->setText(pages.size() == 1 ? u"1 page found"_s : u"%1 pages found"_s.arg(pages.size()));
}

void HelpWindow::listPages(const QList<HelpBook::Page> &pages)
{
    m_ui->lstHits->clear();
    for (const HelpBook::Page &page : pages) {
        auto *item = new QListWidgetItem(page.title, m_ui->lstHits);
        item->setData(Qt::UserRole, page.address);
    }
}

void HelpWindow::openItem(const QListWidgetItem *item)
{
    if (item)
        m_ui->txtTopic->open(item->data(Qt::UserRole).toUrl());
}

void HelpWindow::showTopic(int topic)
{
    present(HelpBook::topicAddress(topic), m_ui->txtTopic);
}

void HelpWindow::showContents()
{
    m_ui->tabFinders->setCurrentWidget(m_ui->pageContents);
    present(HelpBook::topicAddress(firstTopic), m_book.engine().contentWidget());
}

void HelpWindow::showSearch()
{
    m_ui->tabFinders->setCurrentWidget(m_ui->pageSearch);
    const QUrl shown = m_ui->txtTopic->source();
    present(shown.isEmpty() ? HelpBook::topicAddress(firstTopic) : shown, m_ui->txtSearch);
    m_ui->txtSearch->selectAll();
}

void HelpWindow::showHelpOnHelp()
{
    present(TopicBrowser::usingHelpAddress(), m_ui->txtTopic);
}

void HelpWindow::present(const QUrl &address, QWidget *focus)
{
    // A dialog blocks all windows but its own: help asked for there has to belong to it.
    winId();
    const QWidget *dialog = QApplication::activeModalWidget();
    windowHandle()->setTransientParent(dialog ? dialog->windowHandle() : nullptr);

    m_ui->txtTopic->open(address);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    focus->setFocus();
}

} // namespace obelmark
