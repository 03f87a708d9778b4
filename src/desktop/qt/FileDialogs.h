#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace obelmark {

/// What Desktop::askSaveFile() and Desktop::askOpenFile() promise.
std::optional<QString> runSaveDialog(const QString &fileName, const QString &filter, QWidget *owner);
std::optional<QString> runOpenDialog(const QString &filter, QWidget *owner);

} // namespace obelmark
