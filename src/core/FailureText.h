#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "core/MainModule.h"

namespace tavrix {

/// How most messages about a failure go: what could not be done, a blank line, the system's words for it and "...".
[[nodiscard]] std::string FailureText(std::string_view what, const RuntimeError& error);
/// The same with the path that it was about, between two blank lines.
[[nodiscard]] std::string FailureText(std::string_view what, std::string_view path,
                                      const RuntimeError& error);

/// FailureText in a box with the stop icon.
void TellFailure(const MainModule& module, std::string_view what, const RuntimeError& error);
/// The same with the path that it was about.
void TellFailure(const MainModule& module, std::string_view what, std::string_view path,
                 const RuntimeError& error);

}  // namespace tavrix
