#pragma once

#include <functional>
#include <memory>

#include "backends/shared/help/HelpDesk.h"

namespace tavrix::qt {

class HelpWidget;

/// The window "Tavrix Help": a list of the pages and the page that is turned up. It is not modal, and it stays usable
/// while boxes and modal windows are open. Until the first Open there is nothing of it.
class HelpWindow final : public HelpScreen {
  public:
    /// `topmost` says whether the program's windows are to be above all others.
    explicit HelpWindow(std::function<bool()> topmost);
    ~HelpWindow() override;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    void Open(const HelpBook& book, unsigned context) override;
    void Close() override;

  private:
    std::function<bool()> topmost_;
    std::unique_ptr<HelpWidget> widget_;
};

}  // namespace tavrix::qt
