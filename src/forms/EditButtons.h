// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>

class QPushButton;
class QWidget;

namespace obelmark {

/// Browsing: the fields show the current row. Editing: the user has changed a field. Adding: the fields are a
/// row that is not in the database yet. Filling: they are being filled from code; their changes are not the
/// user's.
enum class EditState { Browsing, Editing, Adding, Filling };

/// A widget that its window hides keeps its place, so that the others stay under the hand.
void keepPlaceWhenHidden(QWidget *widget);

/// The buttons of an editor window: one set for browsing, and Cancel and Update in its stead while a row is
/// changed or added.
class EditButtons
{
public:
    /// The buttons of \a form have the names that all editor windows share. \a ownBrowsing are the further
    /// ones that are shown while browsing only.
    template<class Form>
    EditButtons(const Form &form, const QList<QPushButton *> &ownBrowsing)
        : EditButtons(form.cmdAddNew, form.cmdNext,
                      QList{form.cmdFirst, form.cmdPrevious, form.cmdNext, form.cmdLast, form.cmdDelete,
                            form.cmdFind} +
                          ownBrowsing,
                      {form.cmdCancel, form.cmdUpdate})
    {
    }

    /// Not while Filling.
    void show(EditState state);

private:
    EditButtons(QPushButton *addNew, QPushButton *next, const QList<QPushButton *> &browsing,
                const QList<QPushButton *> &editing);

    QList<QPushButton *> m_browsing;
    QList<QPushButton *> m_editing;
    QPushButton *m_addNew;
    QPushButton *m_next;
};

} // namespace obelmark
