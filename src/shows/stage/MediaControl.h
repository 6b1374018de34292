#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

enum class SoundFileKind { None, Wave, Midi };

/// What a sound file's ending says, in any case of letters: ".WAV" or ".MID".
[[nodiscard]] SoundFileKind KindOfSoundFile(const std::string& file);

/// Whether the drive with the letter `CdRomDriveLetter` can be made the current one, as it can with a disc in it; no
/// letter is no drive. The current drive is the same afterwards.
[[nodiscard]] bool CdDriveAnswers(const MainModule& module);

// What starts something tells of a failure of the platform in a box. What stops something is silent about it.

/// Plays a wave file in the background, by WaveFlags::Once or WaveFlags::Repeated.
void PlayWaveFile(const MainModule& module, const std::string& file, unsigned flags);
void StopWaveFile(const MainModule& module);
/// Runs one of MediaCommands; whether it succeeded.
[[nodiscard]] bool StartByCommand(const MainModule& module, const std::string& command);
/// Whether it succeeded.
bool StopByCommand(const MainModule& module, const std::string& command);

}  // namespace tavrix
