#pragma once

#include <string>
#include <string_view>

namespace tavrix {

// Where the program is on the web. The host is set when the program is built (TAVRIX_WEB_HOST).

/// The maker's home page.
[[nodiscard]] std::string MakerAddress();
/// The product's page.
[[nodiscard]] std::string ProductAddress();
/// The page that tells which version is the latest.
[[nodiscard]] std::string VersionAddress();

/// Whether an address names a host that nobody can have, such as one that ends in ".example": nothing is there.
[[nodiscard]] bool HasReservedHost(std::string_view address);

}  // namespace tavrix
