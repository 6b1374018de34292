#pragma once

#include <QDBusConnection>
#include <optional>

#include "backends/qt/idle/IdleStarter.h"

namespace tavrix::idle {

/// What the services on the buses know of a session. A service that does not run is not started by a question, and one that
/// does not answer within two seconds knows nothing.
class BusQuestions {
  public:
    BusQuestions(QDBusConnection session, QDBusConnection system);

    /// The time since the last input, as the compositor tells it; of those that tell it by the common interface, KWin alone
    /// is asked under Wayland, which counts milliseconds.
    [[nodiscard]] std::optional<Milliseconds> IdleTime() const;
    /// Whether somebody keeps the session from being idle, or the screen from its saver.
    [[nodiscard]] bool Held() const;

    [[nodiscard]] const QDBusConnection& SessionBus() const { return session_; }

  private:
    [[nodiscard]] bool HeldByLogind() const;
    [[nodiscard]] bool HeldByDesktop() const;
    [[nodiscard]] bool Covered() const;
    [[nodiscard]] bool OwnedByUs(const char* service) const;

    QDBusConnection session_;
    QDBusConnection system_;
};

}  // namespace tavrix::idle
