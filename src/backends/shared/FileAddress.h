#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

/// A host path, whole or relative, with bytes escaped as RFC 3986 asks for in a path.
[[nodiscard]] std::string EscapedPath(std::string_view hostPath);

/// The address of a host path: file:// and the path, with bytes escaped as RFC 3986 asks for in a path.
[[nodiscard]] std::string FileAddressOf(std::string_view hostPath);

/// The host path of an address that starts with file:// (on this machine); nothing for other text.
[[nodiscard]] std::optional<std::string> PathOfFileAddress(std::string_view address);

}  // namespace tavrix
