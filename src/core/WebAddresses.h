#pragma once

namespace tavrix {

/// The product's page on the web.
inline constexpr const char* ProductAddress = "https://www.tavrix.example/tavrix/";

}  // namespace tavrix
