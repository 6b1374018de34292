#pragma once

#include <string>

namespace tavrix {

/// How PlayWave plays; values are combined with |.
namespace WaveFlags {
inline constexpr unsigned InBackground = 1;  ///< the call does not wait for the end of the sound
inline constexpr unsigned NoDefault =
    2;                               ///< silence, not a sound of the system's, where there is no such file
inline constexpr unsigned Loop = 8;  ///< again and again until it is stopped

inline constexpr unsigned Once = InBackground | NoDefault;
inline constexpr unsigned Repeated = Once | Loop;
}  // namespace WaveFlags

/// The sounds of this system. One wave file and one MIDI file can play at a time, each by itself until it ends or is
/// stopped; both end with the process. Not for several threads at a time.
class Sound {
  public:
    virtual ~Sound() = default;
    /// Numbers of output devices. Asking opens no device.
    [[nodiscard]] virtual int WaveDevices() = 0;
    [[nodiscard]] virtual int MidiDevices() = 0;

    /// Plays a wave file (a drive path, or one from the current folder) in the place of the one that plays, by
    /// WaveFlags::Once or WaveFlags::Repeated. An empty path stops the sound. A file that is missing or holds no
    /// sound, and a system without a device, are silence. Failures that are none of these are RuntimeError.
    virtual void PlayWave(const std::string& path, unsigned flags) = 0;

    /// Runs one text command of the media control, in any case of letters:
    ///
    ///     open "FILE" type sequencer alias NAME    open cdaudio alias NAME
    ///     play NAME    stop NAME    close NAME
    ///     set NAME time format tmsf    set NAME door open    set NAME door closed
    ///     seek NAME to start    seek NAME to TRACK
    ///
    /// Positive when it succeeded, 0 when it failed. Of a command that failed the user has been told by a box of the
    /// system's own, unless the system just has nothing to play on. Failures that are none of the command's are
    /// RuntimeError.
    [[nodiscard]] virtual int Mci(const std::string& command) = 0;
};

}  // namespace tavrix
