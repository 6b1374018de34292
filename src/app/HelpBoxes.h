#pragma once

#include "platform/forms/Application.h"
#include "platform/services/Help.h"

namespace tavrix {

/// Help without pages: it says so.
class HelpBoxes final : public Help {
  public:
    explicit HelpBoxes(forms::Application& application) : app_(application) {}

    void Show(const std::string& file, HelpCommand command, unsigned data) override;

  private:
    forms::Application& app_;
};

}  // namespace tavrix
