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

EditButtons::EditButtons(const QWidget &window, const QList<QPushButton *> &ownBrowsing)
{
    const auto button = [&window](const QString &name) {
        auto *found = window.findChild<QPushButton *>(name);
        Q_ASSERT(found);
        keepPlaceWhenHidden(found);
        return found;
    };
    m_addNew = button(u"cmdAddNew"_s);
    m_next = button(u"cmdNext"_s);
    m_browsing = {button(u"cmdFirst"_s), button(u"cmdPrevious"_s), m_next,
                  button(u"cmdLast"_s),  button(u"cmdDelete"_s),   button(u"cmdFind"_s)};
    m_editing = {button(u"cmdCancel"_s), button(u"cmdUpdate"_s)};
    std::ranges::for_each(ownBrowsing, keepPlaceWhenHidden);
    m_browsing += ownBrowsing;
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
