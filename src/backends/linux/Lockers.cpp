#include "backends/linux/Lockers.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <sstream>
#include <string_view>
#include <system_error>

#include "backends/linux/HostFile.h"
#include "backends/linux/PipedProgram.h"
#include "base/Text.h"

namespace tavrix {
namespace {

/// As the system lists them: 15 characters at most.
constexpr std::array<std::string_view, 33> LockerNames{
    "xscreensaver",    "xscreensaver-sy", "light-locker",    "xss-lock",        "xautolock",
    "xidlehook",       "gnome-screensav", "mate-screensave", "cinnamon-screen", "xfce4-screensav",
    "kscreenlocker_g", "ukui-screensave", "dde-lock",        "budgie-screensa", "i3lock",
    "i3lock-color",    "betterlockscree", "slock",           "xsecurelock",     "xtrlock",
    "xlock",           "physlock",        "vlock",           "alock",           "sxlock",
    "pyxtrlock",       "swaylock",        "swayidle",        "hypridle",        "hyprlock",
    "lxlock",          "enlightenment",   "gnome-shell"};

constexpr std::array<std::string_view, 36> WindowManagers{
    "openbox", "fluxbox", "blackbox", "icewm",    "icewm-session", "i3",        "i3wm",        "awesome",
    "bspwm",   "dwm",     "xmonad",   "jwm",      "fvwm",          "fvwm3",     "fvwm2",       "twm",
    "ctwm",    "mwm",     "qtile",    "spectrwm", "herbstluftwm",  "wmaker",    "windowmaker", "ratpoison",
    "stumpwm", "evilwm",  "pekwm",    "cwm",      "sawfish",       "afterstep", "metacity",    "marco",
    "xfwm4",   "muffin",  "notion",   "matchbox"};

constexpr std::array<std::string_view, 3> ConsoleStarters{"xinit", "startx", "sx"};

/// 12 of ":12", of ":12.0" and of "unix:12"; displays of other machines stay as they are.
std::string DisplayNumber(const std::string& display) {
    const auto colon = display.rfind(':');
    if (colon == std::string::npos) return display;
    const std::string host = display.substr(0, colon);
    const std::string number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    return host.empty() || host == "unix" ? number : host + ":" + number;
}

/// The display of a process; nothing where the system does not show it.
std::optional<std::string> DisplayOf(const std::filesystem::path& process) {
    const auto environment = ReadWholeFile((process / "environ").string());
    if (!environment || environment->empty()) return std::nullopt;
    std::istringstream entries(*environment);
    for (std::string entry; std::getline(entries, entry, '\0');) {
        if (entry.starts_with("DISPLAY=")) return entry.substr(std::string_view("DISPLAY=").size());
    }
    return std::string();
}

bool IsOurs(const std::filesystem::path& process) {
    struct stat status {};
    return ::stat(process.c_str(), &status) == 0 && status.st_uid == ::getuid();
}

/// Whether a process of the user's bears one of these names and `counts`. True too where nobody can tell.
template <class Counts>
bool AnyProcess(const std::string& processes, std::span<const std::string_view> names, Counts counts) {
    std::error_code error;
    const std::filesystem::directory_iterator all(processes, error);
    if (error) return true;
    return std::any_of(begin(all), end(all), [&](const auto& entry) {
        const std::filesystem::path& process = entry.path();
        if (process.filename().string().find_first_not_of("0123456789") != std::string::npos) return false;
        const auto name = ReadWholeFile((process / "comm").string());
        if (!name || !IsOurs(process)) return false;
        return std::ranges::find(names, Trim(name->substr(0, name->find('\n')))) != names.end() &&
               counts(process);
    });
}

}  // namespace

bool LockerRuns(const std::string& display, const std::string& processes) {
    return AnyProcess(processes, LockerNames, [&](const std::filesystem::path& process) {
        const auto shown = DisplayOf(process);
        return !shown || DisplayNumber(*shown) == DisplayNumber(display);
    });
}

bool StartedFromConsole(const std::string& processes) {
    return AnyProcess(processes, ConsoleStarters, [](const auto&) { return true; });
}

bool DesktopHasLocker(const std::string& desktops) {
    std::istringstream names(desktops);
    for (std::string name; std::getline(names, name, ':');) {
        const bool mere = std::ranges::any_of(
            WindowManagers, [&](std::string_view manager) { return EqualIgnoringCase(name, manager); });
        if (!name.empty() && !mere) return true;
    }
    return false;
}

bool HasPassword(const std::string& passwdStatus) {
    std::istringstream words(passwdStatus);
    std::string name;
    std::string state;
    words >> name >> state;
    return state == "P" || state == "PS";
}

bool AccountHasPassword() {
    auto program = PipedProgram::Start("passwd", {"-S"});
    if (!program) return false;
    program->EndInput();
    const auto line = program->ReadLine(std::chrono::seconds(2));
    const auto status = line ? program->Status(std::chrono::seconds(1)) : std::nullopt;
    if (!status) program->Kill();
    return status == 0 && HasPassword(*line);
}

}  // namespace tavrix
