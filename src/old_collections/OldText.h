// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace obelmark {

/// A text as files of the engine's fourth version and later hold it: two bytes a character, or packed. A
/// packed one begins with FF FE, then has one byte for each character below 256; every zero byte changes over
/// to two bytes a character and back. Nothing when the bytes are no text.
std::optional<QString> decodeOldText(QByteArrayView bytes);

} // namespace obelmark
