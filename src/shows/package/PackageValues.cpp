#include "shows/package/PackageValues.h"

#include <cstddef>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Settings.h"
#include "platform/services/Profile.h"
#include "shows/package/PackageLayout.h"

namespace tavrix {
namespace {

constexpr const char* PackageSection = "Package";
constexpr const char* SetupSection = "Tavrix Setup";
constexpr std::size_t CharactersRead = 127;

std::string FlagText(bool value) {
    return value ? "True" : "False";
}

std::string TextOr(const ProfileSection& section, const std::string& key, const std::string& missing) {
    const std::string text = Trim(section.Read(key));
    return text.empty() ? missing : text;
}

}  // namespace

PackageValues LoadPackageSettings(const MainModule& module) {
    const ProfileSection section = module.platform.profile.Read(PackageSection, SettingsFile(module));
    const auto isWord = [&](const char* key, const char* word) {
        return EqualIgnoringCase(Trim(section.Read(key)), word);
    };
    PackageValues values;
    values.PackageName = TextOr(section, "PackageName", values.PackageName);
    values.PackageSource = TextOr(section, "PackageSource", "");
    values.PackageDestination = TextOr(section, "PackageDestination", "");
    values.PackageSize = TextOr(section, "PackageSize", values.PackageSize);
    values.PackageScreenSaver = isWord("PackageScreenSaver", "TRUE");
    values.PackageDefaultSaver = !isWord("PackageDefaultSaver", "FALSE");
    values.PackageShortcut = isWord("PackageShortcut", "TRUE");
    return values;
}

void SavePackageSettings(const MainModule& module, const PackageValues& values) {
    SkipFailure([&] {
        const std::string file = SettingsFile(module);
        const ProfileSection former = module.platform.profile.Read(PackageSection, file);
        std::vector<ProfileEntry> entries;
        const auto add = [&](const char* key, const std::string& value) {
            const std::string read = former.Read(key);
            const bool perhapsCut = CharacterCount(read) >= CharactersRead && Trim(read) == value;
            if (!perhapsCut) entries.emplace_back(key, value);
        };
        add("PackageName", values.PackageName);
        add("PackageSource", values.PackageSource);
        add("PackageDestination", values.PackageDestination);
        add("PackageSize", values.PackageSize);
        add("PackageScreenSaver", FlagText(values.PackageScreenSaver));
        add("PackageDefaultSaver", FlagText(values.PackageDefaultSaver));
        add("PackageShortcut", FlagText(values.PackageShortcut));
        module.platform.profile.Write(PackageSection, entries, file);
    });
}

void WriteSetupIni(const MainModule& module, const PackageValues& values, const std::string& show) {
    const std::vector<ProfileEntry> entries{{"SlideShowFile", show},
                                            {"SlideShowName", values.PackageName},
                                            {"InstallSize", values.PackageSize},
                                            {"ScreenSaver", FlagText(values.PackageScreenSaver)},
                                            {"MakeDefaultSaver", FlagText(values.PackageDefaultSaver)},
                                            {"SlideShowShortcut", FlagText(values.PackageShortcut)}};
    module.platform.profile.Write(SetupSection, entries,
                                  WithBackslash(values.PackageDestination) + package::SetupIni);
}

std::string NameInSetupIni(const MainModule& module, const std::string& folder) {
    const std::string file = WithBackslash(folder) + package::SetupIni;
    return Trim(module.platform.profile.Read(SetupSection, file).Read("SlideShowName"));
}

}  // namespace tavrix
