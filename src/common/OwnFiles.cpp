#include "common/OwnFiles.h"

#include "common/SharedState.h"
#include "common/TextHelpers.h"
#include "runtime/NumberedError.h"
#include <QFileInfo>

namespace obelmark {

using namespace Qt::StringLiterals;

void requireForeignFile(const QString &path, const SharedState &shared)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    if (target.isEmpty())
        return;
    const auto isAt = [&](const QString &own) { return target == QFileInfo(own).canonicalFilePath(); };
    const auto inFolder = [&](const QString &name) { return pathInAnyCase(shared.AppFolder, name); };
    const QString pictures = QFileInfo(inFolder(u"images"_s)).canonicalFilePath();
    if (isAt(shared.DatabasePath) || isAt(shared.DatabasePath + u"-journal"_s) || isAt(shared.HelpFilePath) ||
        isAt(inFolder(u"Coindb.bak"_s)) || isAt(inFolder(u"rptspec.mdb"_s)) ||
        (!pictures.isEmpty() && target.startsWith(pictures + u'/')))
        throw NumberedError(PermissionDenied, u"'%1' belongs to the collection."_s.arg(path));
}

} // namespace obelmark
