// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "documents/ReportDocument.h"

namespace obelmark {

class ReportLayout;

/// What ReportDocument::find(), pageOf() and rectsOf() promise.
std::optional<ReportMatch> findText(const ReportLayout &layout, const QString &text, const ReportMatch &from,
                                    SearchDirection direction);
int lineOf(const ReportLayout &layout, const ReportMatch &match);
QList<ReportDocument::MatchRect> matchRects(const ReportLayout &layout, qsizetype page, const QString &text);

} // namespace obelmark
