#include "backends/linux/HostIdleStart.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/linux/Programs.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr const char* Section = "Desktop Entry";
constexpr const char* MinutesKey = "X-Tavrix-Minutes";
constexpr int MostMinutes = 24 * 60;

/// As the Exec line of an entry wants it: in quotation marks, special characters behind backslashes, which a value of an
/// entry doubles, and a percent sign doubled.
std::string AsCommand(const std::string& program) {
    std::string quoted = "\"";
    for (const char c : program) {
        if (c == '"' || c == '`' || c == '$') quoted += "\\\\";
        if (c == '\\') quoted += "\\\\\\";
        if (c == '%') quoted += '%';
        quoted += c;
    }
    return quoted + '"';
}

std::string AsValue(const std::string& text) {
    std::string value;
    for (const char c : text) {
        if (c == '\\') value += '\\';
        value += c;
    }
    return value;
}

/// The text with the key's line set, in the first section of that name or in a new one. A value is not quoted, as it
/// would be in a profile.
std::string WithKey(const std::string& text, const std::string& key, const std::string& value) {
    const std::string line = key + "=" + value;
    std::string changed;
    bool inSection = false;
    bool done = false;
    const auto put = [&] {
        if (!std::exchange(done, true)) changed += line + "\n";
    };
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string old = text.substr(at, end - at);
        at = end + 1;
        if (old.starts_with('[')) {
            if (inSection) put();
            inSection = Trim(old.substr(0, old.find('\r'))) == "[" + std::string(Section) + "]";
        }
        const std::size_t equals = old.find('=');
        if (inSection && equals != std::string::npos && Trim(old.substr(0, equals)) == key) {
            put();
        } else {
            changed += old + "\n";
        }
    }
    if (!done && !inSection) changed += "[" + std::string(Section) + "]\n";
    put();
    return changed;
}

}  // namespace

IdleEntry::IdleEntry(const HostPaths& paths)
    : file_(HostFolderOf(paths.config) + "/autostart/tavrix-idle.desktop") {}

std::optional<int> IdleEntry::Minutes(std::optional<int> known) const {
    std::optional<std::string> content = ReadWholeFile(file_, LargestProfile);
    if (!content) return std::nullopt;
    if (known) content->resize(content->rfind('\n') + 1);  // nothing is left where there is none
    const ProfileSection entry = ReadProfileSection(*content, Section);
    if (!entry.Has("Exec")) return known;
    if (EqualIgnoringCase(entry.Read("Hidden"), "true")) return std::nullopt;
    if (EqualIgnoringCase(entry.Read("X-GNOME-Autostart-enabled"), "false")) return std::nullopt;
    if (known && !entry.Has(MinutesKey)) return known;
    const std::string digits = entry.Read(MinutesKey);
    const bool number = !digits.empty() && digits.size() <= 5 &&
                        std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
    const int minutes = number ? std::stoi(digits) : 0;
    return minutes >= 1 && minutes <= MostMinutes ? minutes : UsualMinutes;
}

void IdleEntry::Set(std::optional<int> minutes, const std::string& program) const {
    if (!minutes) {
        if (::unlink(file_.c_str()) != 0 && errno != ENOENT) throw ErrorOf(errno);
        return;
    }
    std::string text = ReadIfThere(file_, LargestProfile).value_or(std::string());
    const std::array<std::pair<const char*, std::string>, 8> keys{{
        {"Type", "Application"},
        {"Name", "Tavrix screen saver"},
        {"Comment", "Starts the screen saver when nobody has worked for a while"},
        {"Exec", AsCommand(program)},
        {"TryExec", AsValue(program)},
        {"NoDisplay", "true"},
        {"Hidden", "false"},
        {MinutesKey, std::to_string(std::clamp(*minutes, 1, MostMinutes))},
    }};
    for (const auto& [key, value] : keys)
        text = WithKey(text, key, value);
    if (ReadProfileSection(text, Section).Has("X-GNOME-Autostart-enabled"))
        text = WithKey(text, "X-GNOME-Autostart-enabled", "true");
    MakeFolders(HostFolderOf(file_));
    TargetFile::Options options;
    options.newMode = 0644;
    TargetFile target(file_, options);
    target.Write(text);
    target.Commit();
}

HostIdleStart::HostIdleStart(const HostPaths& paths, std::string program)
    : entry_(paths), program_(std::move(program)) {}

void HostIdleStart::Set(std::optional<int> minutes) {
    entry_.Set(minutes, program_);
    // The one that runs already follows the entry, and a second one ends at once.
    if (minutes) static_cast<void>(StartFirst({{program_}}));
}

}  // namespace tavrix
