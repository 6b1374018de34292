#pragma once

#include <cstdint>
#include <optional>

#include "core/MainModule.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The work that the OK of a dialog starts, once all that was entered is in order: the hourglass while this lives,
/// messages, the dialog hidden, messages.
///
///     DialogWork work(*this, module_);
///     if (!work) return;
class DialogWork {
  public:
    /// What becomes of the dialog when the work begins.
    enum class Dialog : std::uint8_t { Hidden, Stays };

    DialogWork(forms::Form& form, const MainModule& module, Dialog dialog = Dialog::Hidden);
    DialogWork(const DialogWork&) = delete;
    DialogWork& operator=(const DialogWork&) = delete;

    /// Whether the work is to be done. It is not where another operation runs, such as the one that the same button has
    /// started already, nor where the user has closed the dialog while messages ran.
    [[nodiscard]] explicit operator bool() const { return busy_.has_value(); }
    /// Ends the hourglass early.
    void Release() { busy_.reset(); }

  private:
    std::optional<forms::BusyGuard> busy_;
};

}  // namespace tavrix
