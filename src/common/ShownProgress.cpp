// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/ShownProgress.h"

#include "desktop/Desktop.h"

namespace obelmark {

using namespace Qt::StringLiterals;

static QString textOf(FileStage stage)
{
    switch (stage) {
    case FileStage::Copying:
        return u"Copying the database..."_s;
    case FileStage::Compacting:
        return u"Compacting the database..."_s;
    case FileStage::Ordering:
        return u"Putting the records in order..."_s;
    case FileStage::Rescuing:
        return u"Saving what can be read..."_s;
    case FileStage::Checking:
        break;
    }
    return u"Checking the copy..."_s;
}

FileProgress shownProgress(Desktop &desktop, const QString &title, bool cancellable)
{
    const auto shown = std::make_shared<std::unique_ptr<Progress>>();
    return [shown, &desktop, title, cancellable](FileStage stage, qint64 done, qint64 total) {
        if (!*shown)
            *shown = desktop.showProgress(title, cancellable);
        return (*shown)->update(textOf(stage), done, total);
    };
}

} // namespace obelmark
