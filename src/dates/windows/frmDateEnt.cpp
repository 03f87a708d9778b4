// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/windows/frmDateEnt.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "forms/SecondClick.h"
#include "runtime/Formats.h"
#include "ui_frmDateEnt.h"
#include <QKeyEvent>
#include <QSignalBlocker>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int monthsOfYear = MonthPage::monthsOfYear;

QDate dayOrToday(Date date)
{
    const QDate day = date.date();
    return day.isValid() ? day : QDate::currentDate();
}

QString weekdayText(int column, const RegionalSettings &regional)
{
    const Date sunday = Date::from(QDate(1998, 5, 31));
    return u" %1 "_s.arg(formatWeekdayName(Date{sunday.serial + column}, regional));
}

} // namespace

frmDateEnt::frmDateEnt(SharedState &shared, QWidget *parent)
    : QDialog(parent), m_shared(shared), m_ui(std::make_unique<Ui::frmDateEnt>()),
      m_page(dayOrToday(shared.PickDate))
{
    m_ui->setupUi(this);
    Form_Load();
    const std::pair<QToolButton *, int> buttons[] = {
        {m_ui->Spin1Down, -1},
        {m_ui->Spin1Up, 1},
        {m_ui->Spin2Down, -monthsOfYear},
        {m_ui->Spin2Up, monthsOfYear},
    };
    for (const auto &[button, months] : buttons)
        connect(button, &QToolButton::clicked, this, [this, steps = months] { step(steps); });
    connect(m_ui->Grid1, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (pick({row, column}))
            swallowSecondClick(*m_release);
    });
    connect(m_ui->Grid1, &QTableWidget::currentCellChanged, this, [this](int row, int column) {
        choose(m_page.dayAt({row, column}));
    });
}

frmDateEnt::~frmDateEnt() = default;

void frmDateEnt::Form_Load()
{
    for (int row = 0; row < MonthPage::rows; ++row) {
        for (int column = 0; column < MonthPage::columns; ++column) {
            auto *item = new QTableWidgetItem;
            item->setTextAlignment(Qt::AlignCenter);
            item->setFlags(Qt::NoItemFlags);
            if (row == 0) {
                item->setText(weekdayText(column, m_shared.regional));
                item->setBackground(palette().window());
                item->setForeground(palette().windowText());
            }
            m_ui->Grid1->setItem(row, column, item);
        }
    }
    sizeToText();
    ShowMonth();
    // What shows the month and the year is not for typing: whoever goes there comes to the days.
    // (A focus proxy would do that too, but be drawn as having the focus.)
    m_ui->txtMonth->installEventFilter(this);
    m_ui->txtYear->installEventFilter(this);
    m_ui->Grid1->installEventFilter(this);
    m_ui->Grid1->viewport()->installEventFilter(this);
    m_ui->Grid1->setFocus();
}

void frmDateEnt::ShowMonth()
{
    const QDate chosen = m_page.chosen();
    m_ui->txtMonth->setText(formatMonthName(Date::from(chosen), m_shared.regional));
    m_ui->txtYear->setText(QString::number(chosen.year()));
    const QSignalBlocker filling(m_ui->Grid1);
    for (int row = 1; row < MonthPage::rows; ++row) {
        for (int column = 0; column < MonthPage::columns; ++column) {
            QTableWidgetItem *item = m_ui->Grid1->item(row, column);
            const int day = m_page.dayAt({row, column});
            const QDate date(chosen.year(), chosen.month(), day);
            item->setText(day > 0 ? QString::number(day) : QString());
            item->setFlags(day > 0 ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
            QFont font = m_ui->Grid1->font();
            font.setBold(date == QDate::currentDate());
            item->setFont(font);
            item->setData(Qt::AccessibleTextRole,
                          day > 0 ? formatShortDate(Date::from(date), m_shared.regional) : QString());
        }
    }
    const MonthPage::Cell cell = m_page.cellOf(chosen.day());
    m_ui->Grid1->setCurrentCell(cell.row, cell.column);
}

/// Makes everything as large as its largest text needs: no scroll bars, and nothing moves when the month
/// changes.
void frmDateEnt::sizeToText()
{
    const QFontMetrics metrics(font());
    const int digit = metrics.horizontalAdvance(u'0');
    int widestMonth = 0;
    for (int month = 1; month <= monthsOfYear; ++month)
        widestMonth =
            std::max(widestMonth, metrics.horizontalAdvance(m_shared.regional.dateWords().monthName(month)));
    m_ui->txtMonth->setFixedWidth(widestMonth + 2 * digit);
    m_ui->txtYear->setFixedWidth(6 * digit);
    for (QToolButton *button : {m_ui->Spin1Down, m_ui->Spin1Up, m_ui->Spin2Down, m_ui->Spin2Up})
        button->setMinimumSize(3 * digit, m_ui->txtMonth->sizeHint().height());

    QTableWidget *grid = m_ui->Grid1;
    // What stands above the grid is not to reach beyond it.
    int width = std::max(4 * digit, m_ui->layTop->minimumSize().width() / MonthPage::columns + 1);
    for (int column = 0; column < MonthPage::columns; ++column)
        width = std::max(width, metrics.horizontalAdvance(grid->item(0, column)->text()) + digit);
    const int height = metrics.height() * 3 / 2;
    grid->horizontalHeader()->setDefaultSectionSize(width);
    grid->verticalHeader()->setMinimumSectionSize(height);
    grid->verticalHeader()->setDefaultSectionSize(height);
    const int frame = 2 * grid->frameWidth();
    grid->setFixedSize(MonthPage::columns * width + frame, MonthPage::rows * height + frame);
}

void frmDateEnt::step(int months)
{
    if (m_page.step(months))
        ShowMonth();
    else
        m_shared.desktop.beep();
}

void frmDateEnt::choose(int day)
{
    m_page.choose(day);
    const MonthPage::Cell cell = m_page.cellOf(m_page.chosen().day());
    m_ui->Grid1->setCurrentCell(cell.row, cell.column);
}

bool frmDateEnt::pick(MonthPage::Cell cell)
{
    if (!m_page.choose(m_page.dayAt(cell)))
        return false;
    m_shared.PickDate = Date::from(m_page.chosen());
    accept();
    return true;
}

bool frmDateEnt::pressInGrid(int key, bool withCtrl)
{
    const int day = m_page.chosen().day();
    switch (key) {
    case Qt::Key_Left:
        choose(day - 1);
        return true;
    case Qt::Key_Right:
        choose(day + 1);
        return true;
    case Qt::Key_Up:
        choose(day - MonthPage::columns);
        return true;
    case Qt::Key_Down:
        choose(day + MonthPage::columns);
        return true;
    case Qt::Key_Home:
        choose(1);
        return true;
    case Qt::Key_End:
        choose(m_page.chosen().daysInMonth());
        return true;
    case Qt::Key_PageUp:
        step(withCtrl ? -monthsOfYear : -1);
        return true;
    case Qt::Key_PageDown:
        step(withCtrl ? monthsOfYear : 1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick(m_page.cellOf(day));
        return true;
    default:
        return false;
    }
}

bool frmDateEnt::eventFilter(QObject *object, QEvent *event)
{
    if (object == m_ui->Grid1->viewport()) {
        if (event->type() == QEvent::MouseButtonRelease)
            m_release.reset(static_cast<QMouseEvent *>(event)->clone());
        return false;
    }
    if (object != m_ui->Grid1 && event->type() == QEvent::FocusIn) {
        m_ui->Grid1->setFocus();
        return true;
    }
    if (object == m_ui->Grid1 && event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<QKeyEvent *>(event);
        if (pressInGrid(press->key(), press->modifiers().testFlag(Qt::ControlModifier)))
            return true;
    }
    return QDialog::eventFilter(object, event);
}

} // namespace obelmark
