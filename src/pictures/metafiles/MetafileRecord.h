// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pictures/metafiles/MetafileCanvas.h"
#include "runtime/ByteReader.h"
#include <algorithm>
#include <span>

namespace obelmark {

/// What a record of the kind \a Type does to the canvas. \a play reads the contents of the record alone.
template<class Type>
struct MetafileRecord
{
    Type type;
    void (*play)(MetafileCanvas &canvas, ByteReader &contents);
};

/// Plays one record when \a records has its type, unless drawing has taken too long already.
template<class Type>
void playRecord(std::span<const MetafileRecord<Type>> records, Type type, MetafileCanvas &canvas,
                ByteReader contents)
{
    const auto record = std::ranges::find(records, type, &MetafileRecord<Type>::type);
    if (record == records.end() || canvas.isOutOfTime())
        return;
    try {
        record->play(canvas, contents);
    } catch (const ByteReader::End &) { // a record that is shorter than it says has no effect
    }
}

} // namespace obelmark
