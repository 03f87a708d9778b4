// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/ReportTarget.h"

#include "common/ConfirmReplaceFile.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "reports/FileTargets.h"
#include "reports/PreviewTarget.h"

namespace obelmark {

using namespace Qt::StringLiterals;

std::unique_ptr<ReportTarget> ReportTarget::choose(Kind kind, SharedState &shared, ReportPreview &preview,
                                                   const QString &defaultName, const QString &filter)
{
    if (kind == Kind::Preview)
        return std::make_unique<PreviewTarget>(shared, preview);
    const std::optional<QString> path = shared.desktop.askSaveFile(defaultName, filter);
    if (!path) {
        shared.FindCancelled = true;
        return nullptr;
    }
    requireNotCollection(*path, shared);
    if (ConfirmReplaceFile(shared.desktop, *path))
        return nullptr;
    if (kind == Kind::TextFile)
        return std::make_unique<TextFileTarget>(*path);
    return std::make_unique<HtmlFileTarget>(*path);
}

QStringList htmlOpeningLines(const QString &title)
{
    return {u"<html>"_s, u"<head><title>%1</title></head>"_s.arg(title), u"<body>"_s, u"<table border=1>"_s};
}

} // namespace obelmark
