#pragma once

#include <string>

namespace tavrix::forms {

/// A box's text so that the box fits on a screen, whatever a file has brought into it: of words of more than 300
/// characters, lines of more than 1,000 and texts of more than 4,000 or 40 lines the beginning and the end are left,
/// with "..." between them. All other texts stay as they are.
[[nodiscard]] std::string FittingInABox(const std::string& text);

}  // namespace tavrix::forms
