#pragma once

#include <string>
#include <vector>

namespace tavrix {

/// The files of the fonts that texts of windows and pictures are drawn with where nobody names another: plain and bold, of
/// the system's choice. Host paths through no link; a system without fonts has none.
[[nodiscard]] std::vector<std::string> CarriedFonts();

}  // namespace tavrix
