#include "platform/host/HostSound.h"

#include <filesystem>
#include <system_error>

#include "platform/host/HostPaths.h"

namespace tavrix {
namespace {

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

}  // namespace

HostSound::HostSound() {
    places_.runtime = EnvironmentValue("XDG_RUNTIME_DIR");
}

int HostSound::WaveDevices() {
    const int devices = CountNames(places_.devices, [](const std::string& name) {
        return name.starts_with("pcmC") && name.ends_with('p');
    });
    if (devices > 0 || places_.runtime.empty()) return devices;
    return Exists(places_.runtime + "/pulse/native") || Exists(places_.runtime + "/pipewire-0") ? 1 : 0;
}

int HostSound::MidiDevices() {
    const int ports =
        CountNames(places_.devices, [](const std::string& name) { return name.starts_with("midiC"); });
    const int fonts = CountNames(places_.soundFonts, [](const std::string& name) {
        return name.ends_with(".sf2") || name.ends_with(".sf3");
    });
    return ports + (fonts > 0 && WaveDevices() > 0 ? 1 : 0);
}

void HostSound::PlayWave(const std::string&, unsigned) {}

int HostSound::Mci(const std::string&) {
    return 0;
}

}  // namespace tavrix
