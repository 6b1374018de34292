#include "app/Composition.h"

#include "backends/linux/Neighbour.h"
#include "program/WireProgram.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/saver/StartHostedSaver.h"
#include "viewer/EndOfSession.h"

namespace tavrix {
namespace {

/// The help file that came with the executable, for a program's folder that has none.
std::string HelpFileBesideProgram(HostPlatform& host) {
    return host.driveMap.ToDrivePath(HostFolderOf(host.paths.executable) + "/TAVRIX.HLP");
}

}  // namespace

Composition::Composition(HostPlatform& host)
    : host_(host),
      toolkit_([&host](const std::string& hostPath) { return host.driveMap.ToDrivePath(hostPath); }),
      desktop_(host.registry, {[&host](const std::string& path) { return host.files.HostPathOf(path); },
                               [&host](const std::string& file) { return host.driveMap.ToDrivePath(file); }}),
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
    const std::string idle = NeighbourOf(host.paths.executable, "tavrix-idle");
    if (!idle.empty()) idleStart_.emplace(host.paths, idle);
    WireProgram(module_, lives_, nullptr, idleStart_ ? &*idleStart_ : nullptr);
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
