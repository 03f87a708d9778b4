// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/EntryHints.h"

#include "editor/CoinFields.h"
#include "forms/EntryWatch.h"
#include "forms/FieldHint.h"
#include <QApplication>
#include <QWidget>

namespace obelmark {

using namespace Qt::StringLiterals;

EntryHints::EntryHints(QWidget &window, const CoinFields &fields, const EntryWatch &watch)
    : QObject(&window), m_window(window), m_fields(fields), m_watch(watch)
{
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &EntryHints::tell);
    const auto later = [this] { m_later.start(); };
    m_fields.forEach([&](const FieldControl &field) { field.onChange(this, later); });
    connect(qApp, &QApplication::focusChanged, this, later);
}

void EntryHints::tell()
{
    QString first;
    QString focused;
    QString refused;
    m_fields.forEach([&](const FieldControl &field) {
        QWidget &widget = *field.widget();
        const QString remark = field.remark(m_watch.checks(&widget));
        const QString sentence =
            remark.isEmpty() ? QString() : u"%1: %2"_s.arg(widget.accessibleName(), remark);
        setFieldHint(widget, sentence);
        if (first.isEmpty())
            first = sentence;
        if (refused.isEmpty() && remark.startsWith("must "_L1))
            refused = sentence;
        if (m_window.focusWidget() == &widget)
            focused = sentence;
    });
    // What keeps the coin from being saved comes before what will be saved otherwise.
    if (!refused.isEmpty() && !focused.contains(": must "_L1))
        focused = refused;
    emit told(focused.isEmpty() ? first : focused);
}

} // namespace obelmark
