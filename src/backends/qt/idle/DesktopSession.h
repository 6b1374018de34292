#pragma once

#include <QProcess>
#include <functional>
#include <string>

#include "backends/qt/idle/BusQuestions.h"
#include "backends/qt/idle/IdleStarter.h"
#include "backends/qt/idle/ScreenSaverService.h"
#include "backends/qt/idle/XIdleTime.h"

namespace tavrix::idle {

/// The session that the process belongs to, under X11 or Wayland.
class DesktopSession final : public Session {
  public:
    /// `program` is the host path of the viewer; `show` gives the path of the show to play, empty for none.
    DesktopSession(std::string program, std::function<std::string()> show);

    [[nodiscard]] std::optional<Milliseconds> IdleTime() override;
    [[nodiscard]] bool Held() override;
    [[nodiscard]] bool SaverRuns() override { return saver_.state() != QProcess::NotRunning; }
    [[nodiscard]] bool StartSaver() override;

    /// Becomes readable when the display says something, or is gone; -1 where no display is known.
    [[nodiscard]] int Display() const { return display_; }
    /// Reads what the display says. False when it is gone.
    [[nodiscard]] bool ReadDisplay() const;
    /// Whether the session's bus is still there, if there was one.
    [[nodiscard]] bool BusStands() const;

    /// Takes the place of the desktop's saver on the bus, if nobody has it.
    void OfferService();

    /// The saver has ended.
    std::function<void()> onSaverEnded = [] {};

  private:
    std::string program_;
    std::function<std::string()> show_;
    bool wayland_;
    std::optional<XIdleTime> x_;  ///< under X11; under Wayland, asking would start a server for nothing
    BusQuestions bus_;
    bool hadBus_;
    ScreenSaverService service_;
    std::optional<Milliseconds> activity_;  ///< when a program said that the user is there
    QProcess saver_;
    int display_ = -1;
};

/// The moment on a clock that only runs on.
[[nodiscard]] Milliseconds Now();

}  // namespace tavrix::idle
