// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

namespace obelmark {

/// The desktop's style with drop-down lists that one can live with when they are long: they drop down as a
/// list with a scroll bar, and a blank in the middle of typing an entry's text is part of that text. Between
/// words it would open the list, and the rest would be looked for as a text of its own.
class DropDownStyle : public QProxyStyle
{
    Q_OBJECT
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *answer) const override;
    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
};

} // namespace obelmark
