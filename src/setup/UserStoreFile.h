#pragma once

#include <optional>
#include <string>

namespace tavrix::setup {

/// A value of the file in which Tavrix keeps some for the user (host path); nothing where it is not there. Throws where it
/// cannot be read.
[[nodiscard]] std::optional<std::string> ReadStored(const std::string& file, const std::string& name);

/// Sets a value, or takes it out; a file that holds nothing then goes too. Throws where the file cannot be written.
void WriteStored(const std::string& file, const std::string& name, const std::optional<std::string>& value);

}  // namespace tavrix::setup
