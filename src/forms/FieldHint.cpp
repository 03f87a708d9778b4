// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/FieldHint.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Lies over a field and lets all but its edge be seen. (A style sheet would change the field's own look.)
class Frame : public QWidget
{
public:
    explicit Frame(QWidget &field) : QWidget(&field)
    {
        setObjectName(u"hintFrame"_s);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        field.installEventFilter(this);
        setGeometry(field.rect());
        raise();
        show();
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            setGeometry(parentWidget()->rect());
        return false;
    }
    void paintEvent(QPaintEvent *) override
    {
        // Dark enough for a light field, light enough for a dark one.
        const bool isDark = palette().color(QPalette::Base).lightness() < 128;
        constexpr double width = 2;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(isDark ? QColor(255, 170, 60) : QColor(190, 80, 0), width));
        painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), 2, 2);
    }
};

} // namespace

void setFieldHint(QWidget &field, const QString &sentence)
{
    if (field.accessibleDescription() == sentence)
        return;
    field.setAccessibleDescription(sentence);
    auto *frame = field.findChild<QWidget *>(u"hintFrame"_s, Qt::FindDirectChildrenOnly);
    if (sentence.isEmpty())
        delete frame;
    else if (!frame)
        new Frame(field);
}

} // namespace obelmark
