#pragma once

#include <SDL2/SDL_mixer.h>

#include "backends/linux/LateLibrary.h"

namespace tavrix {

/// What is used of SDL's mixer, under its names. The library is loaded with the object; it brings a synthesizer.
struct SdlMixer {
    SdlMixer();

    bool loaded = false;  ///< all of the functions are there
    decltype(Mix_OpenAudio)* OpenAudio = nullptr;
    decltype(Mix_CloseAudio)* CloseAudio = nullptr;
    decltype(Mix_SetSoundFonts)* SetSoundFonts = nullptr;
    decltype(Mix_LoadMUSType_RW)* LoadMusic = nullptr;
    decltype(Mix_FreeMusic)* FreeMusic = nullptr;
    decltype(Mix_PlayMusic)* PlayMusic = nullptr;
    decltype(Mix_HaltMusic)* HaltMusic = nullptr;
};

}  // namespace tavrix
