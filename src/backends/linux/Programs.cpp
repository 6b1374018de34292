#include "backends/linux/Programs.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>

#include "backends/linux/ChildProgram.h"
#include "backends/linux/HostPaths.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr const char* FormatLine = "RUNDLL32.EXE SHELL32.DLL,SHFORMATDRIVE";
constexpr const char* CopyLine = "RUNDLL32.EXE DISKCOPY.DLL,DISKCOPYRUNDLL ";

enum class Panel { Display, ScreenSaver, Sound, Format, CopyDisk };

struct PanelCall {
    Panel panel;
    std::string_view desktop;  ///< a word of XDG_CURRENT_DESKTOP; empty: any desktop
    std::string_view program;
    std::string_view argument;
};

constexpr std::array<PanelCall, 23> PanelCalls{{
    {Panel::Display, "GNOME", "gnome-control-center", "display"},
    {Panel::Display, "KDE", "systemsettings", "kcm_kscreen"},
    {Panel::Display, "XFCE", "xfce4-display-settings", ""},
    {Panel::Display, "X-Cinnamon", "cinnamon-settings", "display"},
    {Panel::Display, "MATE", "mate-display-properties", ""},
    {Panel::Display, "", "lxrandr", ""},
    {Panel::Display, "", "arandr", ""},
    {Panel::ScreenSaver, "KDE", "systemsettings", "kcm_screenlocker"},
    {Panel::ScreenSaver, "XFCE", "xfce4-screensaver-preferences", ""},
    {Panel::ScreenSaver, "MATE", "mate-screensaver-preferences", ""},
    {Panel::ScreenSaver, "X-Cinnamon", "cinnamon-settings", "screensaver"},
    {Panel::ScreenSaver, "", "xscreensaver-settings", ""},
    {Panel::ScreenSaver, "", "xscreensaver-demo", ""},
    {Panel::Sound, "GNOME", "gnome-control-center", "sound"},
    {Panel::Sound, "KDE", "systemsettings", "kcm_pulseaudio"},
    {Panel::Sound, "X-Cinnamon", "cinnamon-settings", "sound"},
    {Panel::Sound, "", "pavucontrol", ""},
    {Panel::Format, "KDE", "partitionmanager", ""},
    {Panel::Format, "", "gnome-disks", "--format-device"},
    {Panel::Format, "", "gparted", ""},
    {Panel::CopyDisk, "KDE", "partitionmanager", ""},
    {Panel::CopyDisk, "", "gnome-disks", ""},
    {Panel::CopyDisk, "", "gparted", ""},
}};

bool NamesDesktop(const std::string& desktops, std::string_view wanted) {
    std::istringstream words(desktops);
    for (std::string word; std::getline(words, word, ':');) {
        if (EqualIgnoringCase(word, wanted)) return true;
    }
    return false;
}

/// The running desktop's own program, then those that fit any desktop, then those of the others.
std::vector<ProgramCall> CallsForPanel(Panel panel, const std::string& desktop) {
    std::vector<ProgramCall> calls;
    for (int round = 0; round < 3; ++round) {
        for (const PanelCall& call : PanelCalls) {
            const int rank = call.desktop.empty() ? 1 : NamesDesktop(desktop, call.desktop) ? 0 : 2;
            if (call.panel != panel || rank != round) continue;
            ProgramCall program{std::string(call.program)};
            if (!call.argument.empty()) program.emplace_back(call.argument);
            calls.push_back(std::move(program));
        }
    }
    return calls;
}

/// The same for tools that are to begin with a disk's device.
std::vector<ProgramCall> CallsForDisk(Panel panel, const std::string& desktop, const std::string& device) {
    std::vector<ProgramCall> calls = CallsForPanel(panel, desktop);
    for (ProgramCall& call : calls) {
        // The others take it as it is.
        if (call.front() == "gnome-disks") call.insert(call.begin() + 1, "--block-device");
        call.insert(call.begin() + (call.front() == "gnome-disks" ? 2 : 1), device);
    }
    return calls;
}

std::string FindProgram(const std::string& name) {
    if (name.find('/') != std::string::npos) return ::access(name.c_str(), X_OK) == 0 ? name : std::string();
    std::istringstream folders(EnvironmentValue("PATH", "/usr/local/bin:/usr/bin:/bin"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string path(folder);
        path.append("/").append(name);
        if (folder.starts_with('/') && ::access(path.c_str(), X_OK) == 0) return path;
    }
    return {};
}

bool Start(const std::string& path, const ProgramCall& call, std::chrono::milliseconds failsWithin) {
    std::optional<ChildProgram> program = ChildProgram::Start(path, call);
    if (!program) return false;
    const std::optional<int> end = failsWithin.count() > 0 ? program->End(failsWithin) : std::nullopt;
    return !end || *end == 0;
}

}  // namespace

std::string DiskLettersOf(const std::string& commandLine) {
    const std::string line = UpperCase(Trim(commandLine));
    if (line == FormatLine) return "AB";
    if (line == CopyLine + std::string("0,0")) return "A";
    if (line == CopyLine + std::string("1,1")) return "B";
    return {};
}

std::vector<ProgramCall> CallsFor(const std::string& commandLine, const std::string& desktop,
                                  const std::string& executable, const std::string& target) {
    const std::string line = UpperCase(Trim(commandLine));
    const std::string& folder = target;
    const std::string panel = "RUNDLL32.EXE SHELL32.DLL,CONTROL_RUNDLL ";
    if (line == panel + "DESK.CPL,@0,3") return CallsForPanel(Panel::Display, desktop);
    if (line == panel + "DESK.CPL,@0,1") return CallsForPanel(Panel::ScreenSaver, desktop);
    if (line.starts_with(panel + "MMSYS.CPL")) return CallsForPanel(Panel::Sound, desktop);
    if (!DiskLettersOf(line).empty()) {
        return target.empty()
                   ? std::vector<ProgramCall>()
                   : CallsForDisk(line == FormatLine ? Panel::Format : Panel::CopyDisk, desktop, target);
    }
    if (line.ends_with("TAVRIX.EXE /C") && !executable.empty()) return {{executable, "/C"}};
    if (line == "EXPLORER.EXE" || line.starts_with("EXPLORER.EXE ")) {
        const std::string shown = folder.empty() ? EnvironmentValue("HOME", "/") : folder;
        return {{"xdg-open", shown}, {"gio", "open", shown}};
    }
    return {};
}

bool StartFirst(const std::vector<ProgramCall>& calls, std::chrono::milliseconds failsWithin) {
    return std::ranges::any_of(calls, [failsWithin](const ProgramCall& call) {
        const std::string path = call.empty() ? std::string() : FindProgram(call.front());
        return !path.empty() && Start(path, call, failsWithin);
    });
}

}  // namespace tavrix
