#include "backup/ShownProgress.h"

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
    case FileStage::Checking:
        break;
    }
    return u"Checking the copy..."_s;
}

FileProgress shownProgress(Desktop &desktop, const QString &title, bool cancellable)
{
    return
        [box = std::shared_ptr<Progress>(desktop.showProgress(title, cancellable))](
            FileStage stage, qint64 done, qint64 total) { return box->update(textOf(stage), done, total); };
}

} // namespace obelmark
