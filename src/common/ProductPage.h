// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

/// The product's page on the web.
inline constexpr char16_t productPage[] = u"https://obelmark.example/";

} // namespace obelmark
