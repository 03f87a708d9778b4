#pragma once

#include <QString>

namespace obelmark {

/// A free name beside the file, by what it is to be: "coin-damaged.mdb", "coin-damaged-2.mdb" and so on.
QString freeName(const QString &path, QLatin1StringView role);

} // namespace obelmark
