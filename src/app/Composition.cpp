#include "app/Composition.h"

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "backends/linux/HostSound.h"
#include "backends/linux/Installation.h"
#include "backends/linux/Neighbour.h"
#include "backends/qt/CarriedPlugins.h"
#include "base/Text.h"
#include "program/WireProgram.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/package/PackageLayout.h"
#include "shows/saver/StartHostedSaver.h"
#include "viewer/EndOfSession.h"

namespace tavrix {
namespace {

/// The help file that came with the executable, for a program's folder that has none.
std::string HelpFileBesideProgram(HostPlatform& host) {
    return host.driveMap.ToDrivePath(HostFolderOf(host.paths.executable) + "/TAVRIX.HLP");
}

/// Where what a package is started by lies; empty where it is not installed.
std::string LaunchersOf(const HostPaths& paths) {
    const std::string folder = paths.shared + "/package";
    std::error_code error;
    return !paths.shared.empty() && std::filesystem::is_directory(folder, error) ? folder : std::string();
}

HostProgramFiles::Places PlacesOf(const HostPaths& paths) {
    const std::string beside = HostFolderOf(paths.executable);
    HostProgramFiles::Places places;
    places.executable = paths.executable;
    places.setup = HelperFolderFor(beside) + "/tavrix-setup";
    places.launchers = LaunchersOf(paths);
    places.folders = {paths.shared, beside};
    for (const package::LayoutEntry& entry : package::Layout)
        places.layout.push_back({std::string(entry.name), entry.ofSystem});
    places.library = package::LibraryFolder;
    places.list = package::LibraryList;
    places.plugins = [] {
        std::vector<HostProgramFiles::Data> plugins;
        for (qt::CarriedPlugin& plugin : qt::CarriedPlugins())
            plugins.push_back({std::move(plugin.name), std::move(plugin.path)});
        return plugins;
    };
    places.soundFonts = EnvironmentValue("TAVRIX_SOUND_FONTS", UsualSoundFonts);
    return places;
}

/// Only the saver and its settings have to do with what guards the screen, and finding that out would delay the start of
/// all others.
bool IsAboutTheSaver(const std::string& commandLine) {
    const std::string word = UpperCase(Trim(commandLine));
    return commandLine.starts_with("SCRNSAVE") || word == "C" || word == "/C";
}

std::optional<bool> AskYesOrNo(forms::Application& app, const std::string& text) {
    const forms::Answer answer = app.MessageBox(
        {.text = text, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNoCancel});
    return answer == forms::Answer::Cancel ? std::nullopt : std::optional(answer == forms::Answer::Yes);
}

/// Where the store cannot be read or written every start finds it out anew.
qt::MenuBarNote NoteIn(UserStore& store) {
    static constexpr const char* Name = "MenuBar";
    return {.read =
                [&store] {
                    std::string note;
                    SkipFailure([&] { note = store.Get(Name, ""); });
                    return note;
                },
            .write = [&store](const std::string& note) { SkipFailure([&] { store.Set(Name, note); }); }};
}

}  // namespace

Composition::Composition(HostPlatform& host, std::shared_ptr<qt::x11::FrameQuestion> frames)
    : host_(host),
      programFiles_(host.files, host.driveMap, PlacesOf(host.paths)),
      toolkit_([&host](const std::string& hostPath) { return host.driveMap.ToDrivePath(hostPath); },
               std::move(frames), NoteIn(host.store)),
      system_([this] { return IsAboutTheSaver(host_.process.CommandLine()) && saverPassword_.MayGuard(); }),
      desktop_(host.registry, {[&host](const std::string& path) { return host.files.HostPathOf(path); },
                               [&host](const std::string& file) { return host.driveMap.ToDrivePath(file); }}),
      saverPassword_(qt::GuardPrograms::Of(host.paths.executable), registry_,
                     [this](const std::string& text) { return AskYesOrNo(app_, text); }),
      helpWindow_([this] { return module_.config.TopMostWindow; }),
      help_(
          host.files, helpWindow_, [&host] { return HelpFileBesideProgram(host); },
          [this](const std::string& text) { app_.MessageBox({.text = text, .icon = forms::BoxIcon::Stop}); }),
      services_{host.files,    host.drives,  host.profile, registry_,     host.store, host.shell,
                host.pictures, clipboard_,   host.sound,   help_,         system_,    host.process,
                host.viewLib,  wakefulness_, desktop_,     saverPassword_} {
    host.sound.OnFailure = [this](const std::string& text) {
        app_.MessageBox({.text = text, .icon = forms::BoxIcon::Exclamation});
    };
    host.shell.Later = [](std::function<void()> work) {
        constexpr std::chrono::milliseconds UntilThePictureIsThere(300);
        QTimer::singleShot(UntilThePictureIsThere, std::move(work));
    };
    const std::string idle = NeighbourOf(host.paths.executable, "tavrix-idle");
    if (!idle.empty()) idleStart_.emplace(host.paths, idle);
    WireProgram(module_, lives_, programFiles_.Available() ? &programFiles_ : nullptr,
                idleStart_ ? &*idleStart_ : nullptr);
}

void Composition::Run() {
    Main(module_, lives_);
    app_.Run();
    host_.process.End();
}

std::string Composition::RunInHost(qt::x11::HostWindow& window, const std::string& show, HostedSaver hosted) {
    toolkit_.Embed(window);
    std::string reason = StartHostedSaver(module_, show, hosted);
    if (reason.empty()) app_.Run();
    return reason;
}

void Composition::Save() {
    SaveForEndOfSession(module_);
    KeepUnsavedShow(module_);
}

void Composition::EndFromOutside() {
    Save();
    host_.process.End();
}

}  // namespace tavrix
