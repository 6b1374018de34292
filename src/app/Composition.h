#pragma once

#include <memory>
#include <optional>

#include "app/HostPlatform.h"
#include "backends/linux/HostIdleStart.h"
#include "backends/linux/HostProgramFiles.h"
#include "backends/qt/QtSystem.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/clipboard/QtClipboard.h"
#include "backends/qt/desktop/DesktopRegistry.h"
#include "backends/qt/desktop/QtDesktop.h"
#include "backends/qt/desktop/QtWakefulness.h"
#include "backends/qt/help/HelpWindow.h"
#include "backends/qt/saver/LockSetting.h"
#include "backends/qt/saver/QtSaverPassword.h"
#include "backends/qt/x11/X11.h"
#include "backends/shared/help/HelpDesk.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "shows/stage/HostedSaver.h"

namespace tavrix {

/// The program on this desktop: which backend stands behind each service, and which windows lead which life.
class Composition {
  public:
    /// The window system must have been started; its manager may have been asked for its frames before.
    explicit Composition(HostPlatform& host, std::shared_ptr<qt::x11::FrameQuestion> frames = {});
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    /// Leads the process's life until its last window is gone.
    void Run();

    /// Plays a show in another program's window until the process is ended; see StartHostedSaver. Returns where there is
    /// nothing to play, with the reason.
    [[nodiscard]] std::string RunInHost(qt::x11::HostWindow& window, const std::string& show,
                                        HostedSaver hosted);

    /// Keeps what an end from outside would lose: see SaveForEndOfSession.
    void Save();
    /// Save, and the end of the process.
    [[noreturn]] void EndFromOutside();

  private:
    HostPlatform& host_;
    HostProgramFiles programFiles_;
    qt::QtToolkit toolkit_;
    forms::Application app_{toolkit_};
    qt::QtClipboard clipboard_;
    qt::QtSystem system_;
    qt::QtWakefulness wakefulness_;
    qt::QtDesktop desktop_;
    qt::DesktopRegistry desktopRegistry_{host_.registry, desktop_};
    qt::LockRegistry registry_{desktopRegistry_};
    qt::QtSaverPassword saverPassword_;
    qt::HelpWindow helpWindow_;
    HelpDesk help_;
    std::optional<HostIdleStart> idleStart_;  ///< where its program is installed
    Services services_;
    MainModule module_{app_, services_};
    Lives lives_;
};

}  // namespace tavrix
