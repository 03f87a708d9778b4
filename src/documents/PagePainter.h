// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

class QPainter;

namespace obelmark {

class ReportLayout;

/// Paints a page of a report, counted from 0, black on what is there, in twips from the paper's top left
/// corner. Rows outside the painter's clip region are left out, and letters of less than 3 pixels are hinted
/// at by bars.
void paintPage(QPainter &painter, const ReportLayout &layout, qsizetype page);

} // namespace obelmark
