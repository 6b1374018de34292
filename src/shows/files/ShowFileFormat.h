#pragma once

#include <cstddef>
#include <cstdint>

namespace tavrix::ShowFileFormat {

inline constexpr const char* Signature = "Tavrix Slide Show";
/// The version that is written.
inline constexpr const char* Version = "Version 1.5";
/// An older one, which is read too: it has fewer options and no descriptions.
inline constexpr const char* OldVersion = "Version 1.X";

/// How a flag that is set stands in the file. One that is not is 0.
inline constexpr std::int16_t True = -1;

/// Characters of a description that are read.
inline constexpr std::size_t LongestDescription = 200;

}  // namespace tavrix::ShowFileFormat
