#pragma once

#include <chrono>
#include <optional>

namespace tavrix::idle {

using Milliseconds = std::chrono::milliseconds;

/// What a session tells about its user, and the start of the saver.
class Session {
  public:
    virtual ~Session() = default;
    /// Since the last input; none where nobody can tell.
    [[nodiscard]] virtual std::optional<Milliseconds> IdleTime() = 0;
    /// Whether the screen is to stay as it is: a program keeps it lit, it is locked, or another saver guards it.
    [[nodiscard]] virtual bool Held() = 0;
    [[nodiscard]] virtual bool SaverRuns() = 0;
    /// False when there is none to start.
    [[nodiscard]] virtual bool StartSaver() = 0;
};

/// Decides when the saver starts. It has no clock and no timer: it is asked, and says when it wants to be asked again.
class IdleStarter {
  public:
    /// Between two questions at least.
    static constexpr Milliseconds Shortest{1000};
    /// While the user is away and something keeps the saver from starting.
    static constexpr Milliseconds Pause{30'000};

    IdleStarter(Session& session, Milliseconds wait) : session_(session), wait_(wait) {}

    void SetWait(Milliseconds wait) { wait_ = wait; }

    /// Starts the saver if it is time to. `now` is of a clock that only runs on. Answers after what time to ask again; none
    /// while the saver runs, whose end is the next occasion.
    std::optional<Milliseconds> Ask(Milliseconds now);

  private:
    Session& session_;
    Milliseconds wait_;
    std::optional<Milliseconds> started_;  ///< the last start
    std::optional<Milliseconds> held_;     ///< when the screen was held last
};

}  // namespace tavrix::idle
