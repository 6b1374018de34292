#include "app/Composition.h"

#include <optional>
#include <string>

#include "base/Text.h"
#include "program/WireProgram.h"
#include "shows/editor/SlideLoadFrm.h"
#include "viewer/EndOfSession.h"

namespace tavrix {
namespace {

/// The help file that came with the executable, for a program's folder that has none.
std::string HelpFileBesideProgram(HostPlatform& host) {
    return host.driveMap.ToDrivePath(HostFolderOf(host.paths.executable) + "/TAVRIX.HLP");
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

}  // namespace

Composition::Composition(HostPlatform& host)
    : host_(host),
      toolkit_([&host](const std::string& hostPath) { return host.driveMap.ToDrivePath(hostPath); }),
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
    WireProgram(module_, lives_);
}

void Composition::Run() {
    Main(module_, lives_);
    app_.Run();
    host_.process.End();
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
