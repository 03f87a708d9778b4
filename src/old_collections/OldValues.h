// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <mdbtools.h>
#include <optional>

namespace obelmark {

/// The value of a field of the row that has been cracked, exactly as the file holds it. Nothing when its
/// bytes make no sense or it is of a kind that the program has no use for.
///
/// The library's own conversions to text are not used: they lose dates before 1900, the difference between
/// null and an empty text, characters beyond the first 65,536, and what is longer than its buffer.
///
/// \a size is that of the file in bytes: what the library reads beyond it is none.
std::optional<Value> oldValue(MdbHandle &file, qint64 size, const MdbColumn &column, const MdbField &field);

/// Where in the file a piece of a page ends.
inline qint64 endInFile(const MdbHandle &file, int page, int offset, qint64 length)
{
    return qint64(page) * file.fmt->pg_size + offset + length;
}

} // namespace obelmark
