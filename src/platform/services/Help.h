#pragma once

#include <string>

namespace tavrix {

enum class HelpCommand : unsigned { Context = 1, Quit = 2, Contents = 3 };

class Help {
  public:
    virtual ~Help() = default;
    /// `data` is the context number for Context, else 0.
    virtual void Show(const std::string& file, HelpCommand command, unsigned data) = 0;
};

}  // namespace tavrix
