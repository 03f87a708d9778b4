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
std::optional<Value> oldValue(MdbHandle &file, const MdbColumn &column, const MdbField &field);

} // namespace obelmark
