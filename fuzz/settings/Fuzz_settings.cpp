#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/shared/ProfileText.h"
#include "core/Settings.h"

namespace {

using namespace tavrix;

void Require(bool condition) {
    if (!condition) std::abort();
}

/// A program that has nothing but its settings.
struct Machine {
    explicit Machine(const std::string& settings) {
        platform.disks.PutFile(Path(), settings);
        module.AppPath = "C:\\Tavrix\\";
    }
    static std::string Path() { return "C:\\Tavrix\\tavrix.ini"; }
    [[nodiscard]] std::string Content() const { return platform.disks.Content(Path()).value_or("none"); }

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, platform.services};
};

/// A key is set, read back, and set again, which changes nothing.
void SetAKey(const std::string& content) {
    const std::array entries{ProfileEntry("Name", "a \"value\""), ProfileEntry("Other", "")};
    const std::string merged = MergeProfileText(content, "Viewer", entries);
    const ProfileSection section = ReadProfileSection(merged, "Viewer");
    Require(section.Read("Name") == "a \"value\"" && section.Read("Other").empty());
    Require(MergeProfileText(merged, "Viewer", entries) == merged);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(data), size);
    SetAKey(content);

    Machine machine(content);
    LoadSettings(machine.module);
    Require(machine.Content() == content);
    SavePreferenceSettings(machine.module);
    SaveSlideSettings(machine.module);
    SaveAllSettings(machine.module, MainViewPlacement{0, 0, 6000, 4000});
    Require(machine.toolkit.BoxesShown() == 0);

    // What was repaired once needs no repair any more.
    const std::string saved = machine.Content();
    Machine again(saved);
    LoadSettings(again.module);
    SavePreferenceSettings(again.module);
    SaveSlideSettings(again.module);
    SaveAllSettings(again.module, MainViewPlacement{0, 0, 6000, 4000});
    Require(again.Content() == saved);
    return 0;
}
