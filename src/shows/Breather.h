#pragma once

#include "core/MainModule.h"

namespace tavrix {

/// Lets messages run in the middle of a long loop, often enough that the window answers, and not so often that the loop
/// takes longer for it.
class Breather {
  public:
    explicit Breather(const MainModule& module) : module_(module), last_(Now()) {}

    /// For each round of the loop.
    void Breathe() {
        constexpr forms::Milliseconds pause{40};
        if (Now() - last_ < pause) return;
        module_.DoEvents();
        last_ = Now();
    }

  private:
    [[nodiscard]] forms::Milliseconds Now() const { return module_.app.GetToolkit().Now(); }

    const MainModule& module_;
    forms::Milliseconds last_;
};

}  // namespace tavrix
