#pragma once

#include <QString>
#include <string>

namespace tavrix::qt {

/// The file: address of a host path, with everything that is not plain ASCII escaped.
[[nodiscard]] QString AddressOfFile(const std::string& file);

/// The host path that a desktop means by a path or a file: address; empty for what is neither, such as a picture on
/// the web.
[[nodiscard]] std::string FileOfAddress(const QString& text);

}  // namespace tavrix::qt
