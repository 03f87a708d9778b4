#include "engine/care/FreeName.h"

#include "engine/care/JournalFiles.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

QString freeName(const QString &path, QLatin1StringView role)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    for (int attempt = 1;; ++attempt) {
        const QString number = attempt > 1 ? u"-%1"_s.arg(attempt) : QString();
        const QString name = file.dir().filePath(file.completeBaseName() + u'-' + role + number + suffix);
        const auto isTaken = [&](QLatin1StringView companion) { return QFileInfo::exists(name + companion); };
        if (!QFileInfo::exists(name) && std::none_of(journalSuffixes.begin(), journalSuffixes.end(), isTaken))
            return name;
    }
}

} // namespace obelmark
