// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLocale>
#include <QPageSize>
#include <QSizeF>

namespace obelmark {

/// The twip, 1440 to the inch, is the one unit of report pages: screen, printer and PDF file scale it, so
/// that they all break lines and pages alike.
inline constexpr double twipsPerInch = 1440;
inline constexpr double twipsPerPoint = 20;

/// A sheet of paper, and which way it lies.
struct PageSetup
{
    QPageSize paper;
    bool landscape = false;

    /// In twips, as the sheet lies.
    QSizeF size() const;

    bool operator==(const PageSetup &) const = default;
};

/// What is left free around everything printed, in twips. The widest report of the program's own, 10,600
/// twips, fits between them on both usual papers.
inline constexpr double pageMarginX = 648;
inline constexpr double pageMarginY = 720;

/// The paper that is usual in the locale's country: Letter in a part of America, A4 elsewhere.
QPageSize usualPaper(const QLocale &locale);

} // namespace obelmark
