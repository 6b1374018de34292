#pragma once

#include <memory>
#include <string>

#include "backends/qt/peers/HeldKeys.h"
#include "backends/qt/saver/ScreenHold.h"
#include "backends/qt/x11/WindowStack.h"

class QSocketNotifier;

namespace tavrix::qt {

/// The process behind a guarded saver: a cover over all displays, on which the saver stands. Where the saver ends without
/// having been allowed to, the cover stays; the guard then takes the screen, asks the session to be locked, and lets go of
/// the screen for the account's password only.
class ScreenGuard {
  public:
    /// Tells whoever started it the cover's window by the standard output; the saver is told of by the standard input.
    explicit ScreenGuard(std::string checker);
    ~ScreenGuard();
    ScreenGuard(const ScreenGuard&) = delete;
    ScreenGuard& operator=(const ScreenGuard&) = delete;

  private:
    void Listen();
    void TakeOver();
    void AskForPassword();

    std::string checker_;
    x11::BlackCover cover_;
    ScreenHold hold_;
    HeldKeys heldKeys_;
    std::unique_ptr<QSocketNotifier> saver_;
    bool alone_ = false;  ///< without the saver
    bool asking_ = false;
};

}  // namespace tavrix::qt
