#pragma once

#include <QtCore>

namespace obelmark {

/// The paths of the C++ files below \a root, relative to it, in order.
inline QStringList sourceFiles(const QDir &root)
{
    QStringList files;
    QDirIterator it(root.path(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files << root.relativeFilePath(it.next());
    files.sort();
    return files;
}

/// What stands in a file's #include lines between \a open and \a close.
inline QStringList includesOf(const QString &path, QChar open, QChar close)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression line(
        QStringLiteral("^[ \\t]*#[ \\t]*include[ \\t]*%1([^\\n]+?)%2").arg(open, close),
        QRegularExpression::MultilineOption);
    QStringList names;
    for (auto it = line.globalMatch(QString::fromUtf8(file.readAll())); it.hasNext();)
        names << it.next().captured(1);
    return names;
}

} // namespace obelmark
