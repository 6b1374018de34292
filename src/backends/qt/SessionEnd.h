#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tavrix::qt {

/// Tells when the process is ended from outside: by a signal, by the end of the desktop's session, or by a display that is
/// gone. There is one for the life of the process, and it is never destroyed before it.
class SessionEnd {
  public:
    struct Calls {
        std::function<void()> save;  ///< keeps what would be lost; the process may live on
        std::function<void()> end;   ///< ends the process
    };

    /// `descriptor` becomes readable with a signal that asks for the end; -1: none will. The window system must have been
    /// started.
    SessionEnd(int descriptor, Calls calls);
    ~SessionEnd();
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;

  private:
    Calls calls_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tavrix::qt
