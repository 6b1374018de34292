#pragma once

#include <memory>
#include <vector>

#include "platform/services/Wakefulness.h"

namespace tavrix::qt {

/// Asks the desktop over the session bus, in the two ways that desktops know: org.freedesktop.ScreenSaver and the
/// portal of sandboxes. Whoever answers is told when the wish is over. The bus is joined with the first wish.
class QtWakefulness final : public Wakefulness {
  public:
    QtWakefulness();
    ~QtWakefulness() override;

    void Inhibit(bool on) override;

  private:
    class Wish;
    std::vector<std::unique_ptr<Wish>> wishes_;
};

}  // namespace tavrix::qt
