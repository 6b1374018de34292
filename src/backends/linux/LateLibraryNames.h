#pragma once

#include <array>

namespace tavrix {

// The libraries that are loaded when they are first needed, and that no linker shows therefore.

inline constexpr const char* SdlLibrary = "libSDL2-2.0.so.0";
inline constexpr const char* SdlMixerLibrary = "libSDL2_mixer-2.0.so.0";
inline constexpr const char* CdioLibraryName = "libcdio.so.19";

/// All of them, and those that the toolkit and the sound library load in the same way.
inline constexpr std::array LateLibraryNames{SdlLibrary, SdlMixerLibrary, CdioLibraryName, "libdbus-1.so.3",
                                             "libXcursor.so.1"};

}  // namespace tavrix
