#include "backends/linux/HostSound.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

#include "backends/linux/CdPlayer.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/MidiPlayer.h"
#include "backends/linux/WavePlayer.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr const char* CdAudio = "CD audio";
constexpr const char* NoMidi = "The file holds no MIDI sound";

template <class Wanted>
int CountNames(const std::string& folder, Wanted&& wanted) {
    int count = 0;
    std::error_code error;
    for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        if (wanted(at->path().filename().string())) ++count;
    }
    return count;
}

bool Exists(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool IsSoundFont(const std::string& name) {
    return name.ends_with(".sf2") || name.ends_with(".sf3");
}

std::vector<std::string> UpperWords(std::string_view text) {
    std::vector<std::string> words;
    const std::string upper = UpperCase(text);
    for (std::size_t at = 0; at < upper.size();) {
        const std::size_t end = std::min(upper.find(' ', at), upper.size());
        if (end > at) words.push_back(upper.substr(at, end - at));
        at = end + 1;
    }
    return words;
}

/// The file of `open "FILE" ...`; empty when it names none.
std::string QuotedFile(const std::string& command) {
    const std::size_t first = command.find('"');
    const std::size_t last = command.rfind('"');
    return first == last ? std::string() : command.substr(first + 1, last - first - 1);
}

/// A track of a disc: 1 to 99.
std::optional<int> TrackNumber(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 1 || number > 99) return {};
    return number;
}

/// Whether a file begins as MIDI files do, in a RIFF wrapper or without; throws as opening it does.
bool IsMidi(HostFiles& files, const std::string& path) {
    std::array<char, 12> start{};
    const std::size_t count = files.Open(path)->Read(std::as_writable_bytes(std::span(start)));
    const std::string_view text(start.data(), count);
    return text.starts_with("MThd") || (text.starts_with("RIFF") && text.ends_with("RMID"));
}

/// Why a command failed. What could not be played is named where that says more than the command.
struct CommandFailure {
    std::string why;  ///< empty: there is nothing to play on, which nobody is told of
    std::string what = {};
};

constexpr const char* NotUnderstood = "The command is not known";
constexpr const char* NoTrack = "The disc has no such audio track, or there is no disc";

std::string Told(const std::string& command, const CommandFailure& failure) {
    const bool open = !failure.what.empty();
    return (open ? "Unable to play:" : "Unable to carry out:") + std::string(NewLine2) +
           (open ? failure.what : command) + std::string(NewLine2) + failure.why + "...";
}

}  // namespace

std::string SoundFontIn(const std::string& folder) {
    std::string chosen;
    CountNames(folder, [&](const std::string& name) {
        if (!IsSoundFont(name)) return false;
        const auto rank = [](const std::string& font) {
            return std::pair(!font.starts_with("default-GM."), font);
        };
        if (chosen.empty() || rank(name) < rank(chosen)) chosen = name;
        return true;
    });
    return chosen.empty() ? std::string() : folder + "/" + chosen;
}

HostSound::HostSound(HostFiles& files, DriveMap& drives) : HostSound(files, drives, Places{}) {
    places_.runtime = EnvironmentValue("XDG_RUNTIME_DIR");
    places_.driver = EnvironmentValue("SDL_AUDIODRIVER");
    places_.soundFonts = EnvironmentValue("TAVRIX_SOUND_FONTS", UsualSoundFonts);
}

HostSound::HostSound(HostFiles& files, DriveMap& drives, Places places)
    : files_(files), drives_(drives), places_(std::move(places)) {}

HostSound::~HostSound() = default;

int HostSound::WaveDevices() {
    const int devices = CountNames(places_.devices, [](const std::string& name) {
        return name.starts_with("pcmC") && name.ends_with('p');
    });
    if (devices > 0) return devices;
    if (!places_.driver.empty()) return 1;
    if (places_.runtime.empty()) return 0;
    return Exists(places_.runtime + "/pulse/native") || Exists(places_.runtime + "/pipewire-0") ? 1 : 0;
}

int HostSound::MidiDevices() {
    const int ports =
        CountNames(places_.devices, [](const std::string& name) { return name.starts_with("midiC"); });
    const int fonts = CountNames(places_.soundFonts, IsSoundFont);
    return ports + (fonts > 0 && WaveDevices() > 0 ? 1 : 0);
}

void HostSound::PlayWave(const std::string& path, unsigned flags) {
    if (wave_) wave_->Stop();
    if (path.empty() || WaveDevices() == 0) return;
    SkipFailure([&] {
        const std::string hostPath = files_.HostPathOf(path);
        if (!wave_) wave_ = std::make_unique<WavePlayer>();
        wave_->Play(hostPath, (flags & WaveFlags::Loop) != 0);
    });
}

int HostSound::Mci(const std::string& command) {
    try {
        Run(command);
        return 1;
    } catch (const CommandFailure& failure) {
        if (!failure.why.empty()) OnFailure(Told(command, failure));
        return 0;
    }
}

void HostSound::Run(const std::string& command) {
    const std::vector<std::string> words = UpperWords(command);
    if (words.size() < 2) throw CommandFailure{NotUnderstood};
    if (words[0] == "OPEN") {
        Open(command, words.back());
    } else if (!midiAlias_.empty() && words[1] == midiAlias_) {
        RunMidi(words);
    } else if (!cdAlias_.empty() && words[1] == cdAlias_) {
        RunCd(words);
    } else {
        throw CommandFailure{"The device is not open"};
    }
}

void HostSound::Open(const std::string& command, const std::string& alias) {
    const std::string upper = UpperCase(command);
    const std::string file = QuotedFile(command);
    if (!file.empty() && upper.find("\" TYPE SEQUENCER ALIAS ") != std::string::npos) {
        OpenMidi(file);
        midiAlias_ = alias;
    } else if (upper.starts_with("OPEN CDAUDIO ALIAS ")) {
        OpenCd();
        cdAlias_ = alias;
    } else {
        throw CommandFailure{NotUnderstood};
    }
}

void HostSound::RunMidi(const std::vector<std::string>& words) {
    if (words[0] == "PLAY") {
        if (!midi_->Play()) throw CommandFailure{"The synthesizer does not play it"};
    } else if (words[0] == "STOP") {
        midi_->Stop();
    } else if (words[0] == "CLOSE") {
        midi_->Close();
        midiAlias_.clear();
    } else {
        throw CommandFailure{NotUnderstood};
    }
}

void HostSound::RunCd(const std::vector<std::string>& words) {
    const auto is = [&words](std::initializer_list<std::string_view> wanted) {
        return std::ranges::equal(std::span(words).subspan(2), wanted);
    };
    if (words[0] == "PLAY") {
        const CdPlayer::Outcome outcome = cd_->Play();
        if (outcome == CdPlayer::Outcome::NoDisc) throw CommandFailure{"There is no audio disc in the drive"};
        if (outcome == CdPlayer::Outcome::NoDevice) throw CommandFailure{};
    } else if (words[0] == "STOP") {
        cd_->Stop();
    } else if (words[0] == "CLOSE") {
        cd_.reset();
        cdAlias_.clear();
    } else if (words[0] == "SEEK" && words.size() == 4 && words[2] == "TO") {
        Seek(words[3]);
    } else if (words[0] == "SET" && (is({"DOOR", "OPEN"}) || is({"DOOR", "CLOSED"}))) {
        const bool open = words[3] == "OPEN";
        if (!cd_->MoveDoor(open)) throw CommandFailure{"The drive does not move its door"};
        drives_.NoteDoor(drives_.CdDevice(), open);
    } else if (words[0] != "SET" || !is({"TIME", "FORMAT", "TMSF"})) {
        throw CommandFailure{NotUnderstood};
    }
}

void HostSound::Seek(const std::string& place) {
    const std::optional<int> track = place == "START" ? 0 : TrackNumber(place);
    if (!track || !cd_->Seek(*track)) throw CommandFailure{NoTrack};
}

void HostSound::OpenCd() {
    cd_.reset();
    cdAlias_.clear();
    const std::string device = drives_.CdDevice();
    if (device.empty()) {
        throw CommandFailure{RuntimeError(ErrorNumber::DeviceUnavailable).Description(), CdAudio};
    }
    auto player = std::make_unique<CdPlayer>(device, drives_.IsDoorOpen(device));
    if (!player->Usable()) throw CommandFailure{"The library libcdio is not installed", CdAudio};
    cd_ = std::move(player);
}

void HostSound::OpenMidi(const std::string& path) {
    if (midi_) midi_->Close();
    midiAlias_.clear();
    try {
        const std::string hostPath = files_.HostPathOf(path);
        if (!IsMidi(files_, path)) throw CommandFailure{NoMidi, path};
        const std::string soundFont = SoundFontIn(places_.soundFonts);
        if (soundFont.empty() || WaveDevices() == 0) throw CommandFailure{};
        if (!midi_) midi_ = std::make_unique<MidiPlayer>();
        switch (midi_->Open(hostPath, soundFont)) {
            case MidiPlayer::Outcome::Done:
                return;
            case MidiPlayer::Outcome::NoDevice:
                throw CommandFailure{};
            case MidiPlayer::Outcome::BadFile:
                throw CommandFailure{NoMidi, path};
        }
    } catch (const RuntimeError& error) {
        throw CommandFailure{error.Description(), path};
    }
}

}  // namespace tavrix
