#pragma once

#include <SDL2/SDL.h>

#include "backends/linux/LateLibrary.h"

namespace tavrix {

/// What is used of SDL's audio, under SDL's names. The library is loaded with the object.
struct SdlAudio {
    SdlAudio();

    /// Starts SDL's audio for one user; false when it is missing or has no device. Each success needs a Quit.
    [[nodiscard]] bool Init() const;
    void Quit() const { QuitSubSystem(SDL_INIT_AUDIO); }

    bool loaded = false;  ///< all of the functions are there
    decltype(SDL_SetHint)* SetHint = nullptr;
    decltype(SDL_InitSubSystem)* InitSubSystem = nullptr;
    decltype(SDL_QuitSubSystem)* QuitSubSystem = nullptr;
    decltype(SDL_RWFromFile)* RWFromFile = nullptr;
    decltype(SDL_LoadWAV_RW)* LoadWav = nullptr;
    decltype(SDL_FreeWAV)* FreeWav = nullptr;
    decltype(SDL_OpenAudioDevice)* OpenAudioDevice = nullptr;
    decltype(SDL_PauseAudioDevice)* PauseAudioDevice = nullptr;
    decltype(SDL_CloseAudioDevice)* CloseAudioDevice = nullptr;
};

}  // namespace tavrix
