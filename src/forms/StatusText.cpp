// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/StatusText.h"

#include <QStylePainter>

namespace obelmark {

StatusText::StatusText(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
}

void StatusText::tell(const QString &text)
{
    setText(text);
    setToolTip(text);
}

void StatusText::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    const QRect place = contentsRect().adjusted(indent(), 0, 0, 0);
    painter.drawItemText(place, int(alignment()), palette(), isEnabled(),
                         fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width()), foregroundRole());
}

} // namespace obelmark
