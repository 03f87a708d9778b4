#include "pictures/PictureFiles.h"

#include "common/TextHelpers.h"
#include <QDir>

namespace obelmark {

using namespace Qt::StringLiterals;

QString imagesFolder(const QString &appFolder)
{
    return pathInAnyCase(appFolder, u"images"_s) + u'/';
}

QString findPictureFile(const QString &appFolder, qint64 coinId)
{
    const QString pattern = u"%1.*"_s.arg(coinId, 8, 10, QLatin1Char('0'));
    const QDir folder(imagesFolder(appFolder));
    const QStringList files = folder.entryList({pattern}, QDir::Files | QDir::Hidden, QDir::Name);
    return files.isEmpty() ? QString() : folder.filePath(files.first());
}

} // namespace obelmark
