#pragma once

#include <string>

/// The texts that Sound::Mci is given. The aliases are names for the whole process, so one window at a time may use
/// them; the modality of the windows sees to that.
namespace tavrix::MediaCommands {

inline constexpr const char* PlayMidi = "play MIDIFile";
inline constexpr const char* StopMidi = "stop MIDIFile";
inline constexpr const char* CloseMidi = "close MIDIFile";

inline constexpr const char* OpenCd = "open cdaudio alias CDTrack";
inline constexpr const char* SetCdFormat = "set CDTrack time format tmsf";
inline constexpr const char* PlayCd = "play CDTrack";
inline constexpr const char* StopCd = "stop CDTrack";
inline constexpr const char* CloseCd = "close CDTrack";
inline constexpr const char* OpenCdDoor = "set CDTrack door open";
inline constexpr const char* CloseCdDoor = "set CDTrack door closed";

[[nodiscard]] inline std::string OpenMidi(const std::string& file) {
    return "open \"" + file + "\" type sequencer alias MIDIFile";
}

/// Track 0 stands for all of them, from the start.
[[nodiscard]] inline std::string SeekCd(int track) {
    return "seek CDTrack to " + (track == 0 ? std::string("start") : std::to_string(track));
}

}  // namespace tavrix::MediaCommands
