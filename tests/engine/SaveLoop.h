#pragma once

#include <QString>

namespace obelmark {

/// What the n-th save puts into a coin: both the saving process and the one that kills it can tell.
struct SavedCoin
{
    explicit SavedCoin(int save)
        : description(QStringLiteral("Münze %1").arg(save)), year(qint16(1000 + save % 1000)),
          notes(QStringLiteral("note %1 ").arg(save).repeated(save % 7 * save % 900))
    {
    }

    QString description;
    qint16 year;
    QString notes;
};

} // namespace obelmark
