// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/EditButtons.h"

#include <QPushButton>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

void keepPlaceWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

EditButtons::EditButtons(QPushButton *addNew, QPushButton *next, const QList<QPushButton *> &browsing,
                         const QList<QPushButton *> &editing)
    : m_browsing(browsing), m_editing(editing), m_addNew(addNew), m_next(next)
{
    for (QPushButton *button : QList{addNew} + browsing + editing)
        keepPlaceWhenHidden(button);
}

void EditButtons::show(EditState state)
{
    const bool browsing = state == EditState::Browsing;
    const bool focusGoes = browsing && std::ranges::any_of(m_editing, &QWidget::hasFocus);
    m_addNew->setText(state == EditState::Adding ? u"&Add Another"_s : u"&Add New"_s);
    m_addNew->setVisible(state != EditState::Editing);
    for (QWidget *shown : browsing ? m_browsing : m_editing)
        shown->show();
    // The hand that pressed Cancel or Update goes on to the next row.
    if (focusGoes)
        m_next->setFocus();
    for (QWidget *hidden : browsing ? m_editing : m_browsing)
        hidden->hide();
}

} // namespace obelmark
