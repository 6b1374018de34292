#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/services/Profile.h"

namespace tavrix {

// The text of a profile: [section] headings, key=value lines, and comment lines that start with a semicolon. Of two
// sections with one name the first counts; names are compared without regard to case.

/// The keys of a section. A missing section is empty.
[[nodiscard]] ProfileSection ReadProfileSection(std::string_view bytes, std::string_view section);

/// The bytes with keys set. A key that stands there is changed in its place, and not even touched when its value is
/// the same already; others go to the end of the section, and a missing section to the end of the file. Every other
/// byte stays, line ends and encoding included (the encoding becomes UTF-8 only when a new value needs it).
/// Line ends in a value become blanks; a value that would lose blanks or quotation marks on reading is quoted.
[[nodiscard]] std::string MergeProfileText(std::string_view bytes, std::string_view section,
                                           std::span<const ProfileEntry> entries);

}  // namespace tavrix
