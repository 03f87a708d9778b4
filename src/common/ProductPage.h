#pragma once

namespace obelmark {

/// The product's page on the web.
inline constexpr char16_t productPage[] = u"https://obelmark.example/";

} // namespace obelmark
